#include "desktop/windows/shown_text.h"

#include <QStringList>
#include <QTextDocument>

namespace marlex {

namespace {

constexpr qsizetype kLongestLine = 90;  // letters: a tool tip is never wider than the main window

/// The length of the first of the lines into which a line that is too long is broken: up to the end
/// of a folder's name, to a blank or a comma, or to a joint within a word.
qsizetype FirstLength(const QString& line) {
  for (const char* joints : {"/\\", " ,", "_-"}) {
    for (qsizetype length = kLongestLine; length > 0; --length) {
      if (QString(joints).contains(line[length - 1])) return length;
    }
  }
  return kLongestLine;
}

QString InShortLines(const QString& text) {
  QStringList lines;
  for (QString line : text.split('\n')) {
    while (line.size() > kLongestLine) {
      const qsizetype length = FirstLength(line);
      lines.append(line.left(length));
      line.remove(0, length);
    }
    lines.append(line);
  }
  return lines.join('\n');
}

}  // namespace

QString ShownText(const std::string& text) {
  QString shown = QString::fromStdString(text);
  shown.replace("\r\n", "\n");
  shown.replace('\r', '\n');
  return shown;
}

QString ShownCaption(const std::string& text) { return ShownText(text).replace("&", "&&"); }

QString ShownToolTip(const std::string& text) {
  const QString shown = InShortLines(ShownText(text));
  return Qt::mightBeRichText(shown) ? shown.toHtmlEscaped() : shown;
}

}  // namespace marlex
