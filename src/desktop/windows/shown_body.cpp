#include "desktop/windows/shown_body.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTextBoundaryFinder>
#include <algorithm>

#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

constexpr qsizetype kLongPath = 60;  // letters: more than a line of a box has
constexpr qsizetype kLongestRoot = 3;
constexpr QChar kFromLeft(0x2066);   // the letters up to `kEnd` run from left to right ...
constexpr QChar kFromRight(0x2067);  // ... or from right to left
constexpr QChar kEnd(0x2069);
constexpr QChar kJoiner(0x2060);  // no line ends here
constexpr QChar kNoBreakSpace(0x00A0);
constexpr QChar kMayEnd(0x200B);    // a line may end here
constexpr QChar kLeftMark(0x200E);  // a letter without a shape that runs from left to right
constexpr QChar kEndsHere(QChar::LineSeparator);  // in place of a blank: the line ends here

/// Where the path of a line begins: at its root, or its drive.
qsizetype PathStart(const QString& line) {
  static const QRegularExpression root(R"((?<=^|\s)(/|[A-Za-z]:\\))");
  return line.indexOf(root);
}

bool IsSeparator(QChar letter) { return letter == '/' || letter == '\\'; }

bool HasLettersFromRight(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar letter) {
    return letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL;
  });
}

/// Has the folders of the path follow one another from left to right.
QString InOrder(const QString& path) {
  if (!HasLettersFromRight(path)) return kFromLeft + path + kEnd;
  QString ordered;
  for (const QChar letter : path) {
    ordered += letter;
    if (IsSeparator(letter)) ordered += kLeftMark;
  }
  return kFromLeft + ordered + kEnd;
}

/// Lets no line end within the path, or only after a separator.
QString Joined(const QString& path) {
  const bool isLong = path.size() > kLongPath;
  const QString whole = QString(path).replace(' ', kNoBreakSpace);
  QTextBoundaryFinder line(QTextBoundaryFinder::Line, whole);
  QString joined;
  for (qsizetype next = 0; next < whole.size(); ++next) {
    const QChar before = next > 0 ? whole[next - 1] : QChar();
    line.setPosition(next);
    if (IsSeparator(before) && isLong && next > kLongestRoot)
      joined += kMayEnd;
    else if (before == kNoBreakSpace || (next > 0 && line.isAtBoundary()))
      joined += kJoiner;
    joined += whole[next];
  }
  return joined;
}

QString WithPathJoined(const QString& line) {
  const qsizetype start = PathStart(line);
  return start < 0 ? line : line.left(start) + InOrder(Joined(line.mid(start)));
}

/// Where the path begins in a line that is shown: at its mark, after a blank.
qsizetype ShownPathStart(const QString& line) {
  static const QRegularExpression path(QString(R"((?<= )%1)").arg(kFromLeft));
  return line.indexOf(path);
}

QString InItsDirection(const QString& line) {
  return (line.isRightToLeft() ? kFromRight : kFromLeft) + line + kEnd;
}

}  // namespace

QString ShownBody(const std::string& body) {
  const QString text = ShownText(body);
  const bool isMixed = HasLettersFromRight(text);
  QStringList lines;
  for (const QString& line : text.split('\n')) {
    const QString joined = WithPathJoined(line);
    lines << (isMixed ? InItsDirection(joined) : joined);
  }
  return lines.join('\n');
}

QString WithPathsApart(const QString& shown, const std::function<bool(const QString&)>& fits) {
  QStringList lines = shown.split('\n');
  for (QString& line : lines) {
    const qsizetype start = ShownPathStart(line);
    if (start > 0 && !fits(line)) line[start - 1] = kEndsHere;
  }
  return lines.join('\n');
}

QString InReadingOrder(const QString& line) {
  if (!HasLettersFromRight(line)) return line;
  const qsizetype start = PathStart(line);
  if (start < 0) return InItsDirection(line);
  const QString path = InOrder(line.mid(start));
  return start == 0 ? path : InItsDirection(line.left(start) + path);
}

QString WithoutMarks(QString shown) {
  shown.replace(QString(kNoBreakSpace) + kJoiner, " ");
  shown.replace(kEndsHere, ' ');
  for (const QChar mark : {kFromLeft, kFromRight, kEnd, kJoiner, kMayEnd, kLeftMark})
    shown.remove(mark);
  return shown;
}

}  // namespace marlex
