#include "desktop/windows/message_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QStyle>
#include <QTextLayout>

#include "desktop/windows/balanced_label.h"
#include "desktop/windows/glyphs.h"
#include "desktop/windows/shown_body.h"
#include "desktop/windows/theme.h"

namespace marlex {

namespace {

constexpr int kSignSize = 36;
constexpr QMargins kBoxMargins(20, 18, 20, 16);

QPixmap SignOf(QMessageBox::Icon icon, qreal ratio) {
  if (icon == QMessageBox::Critical)
    return GlyphPicture("error", ThemeColorNow("alarm"), kSignSize, ratio);
  if (icon == QMessageBox::Warning)
    return GlyphPicture("warning", ThemeColorNow("text"), kSignSize, ratio);
  return GlyphPicture("information", ThemeColorNow("accent"), kSignSize, ratio);
}

/// The line with its last two words joined, if they fit.
QString WithLastWordsJoined(QString line, const QFontMetrics& letters, int room) {
  const qsizetype last = line.lastIndexOf(' ');
  if (last <= 0) return line;
  const qsizetype start = line.lastIndexOf(' ', last - 1) + 1;
  if (letters.horizontalAdvance(line.mid(start)) <= room) line[last] = QChar::Nbsp;
  return line;
}

/// The line broken where its parts are about equally wide, and no word is left alone at its end. A
/// break takes the place of a blank; a path is broken elsewhere.
QString Balanced(QString line, const QFont& font, int room) {
  const QFontMetrics letters(font);
  const QString joined = WithLastWordsJoined(line, letters, room);
  QTextLayout layout(joined, font);
  const int width = BalancedWidth(letters, joined, room);
  layout.beginLayout();
  for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
    part.setLineWidth(width);
    const int end = part.textStart() + part.textLength();
    if (end < line.size() && line[end - 1] == ' ') line[end - 1] = QChar::LineSeparator;
  }
  layout.endLayout();
  return line;
}

}  // namespace

MessageBox::MessageBox(QMessageBox::Icon icon, const QString& caption, const QString& body,
                       QWidget* parent)
    : QMessageBox(icon, caption, body, {}, parent) {
  setObjectName("messageBox");
  setTextFormat(Qt::PlainText);
  layout()->setContentsMargins(kBoxMargins);
  if (auto* text = findChild<QLabel*>("qt_msgbox_label")) {
    // Like all windows, from left to right, even a line that is written from right to left.
    text->setAlignment(text->alignment() | Qt::AlignAbsolute);
    // A screen reader would spell a word whose letters are joined by marks.
    text->setAccessibleName(WithoutMarks(body));
  }
  PutSign();
}

/// Qt puts its own sign back at a change of the style.
void MessageBox::changeEvent(QEvent* event) {
  QMessageBox::changeEvent(event);
  if (event->type() == QEvent::StyleChange) PutSign();
}

/// A path that is copied can be used elsewhere.
void MessageBox::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) return QMessageBox::keyPressEvent(event);
  QGuiApplication::clipboard()->setText(WithoutMarks(text()));
}

void MessageBox::showEvent(QShowEvent* event) {
  MarkPrimaryButton();
  QMessageBox::showEvent(event);
  LayOutText();
}

/// Puts paths on lines of their own, and balances the lines of each paragraph. Qt sets the size of
/// the box when it appears; only then is it known what fits on a line.
void MessageBox::LayOutText() {
  auto* label = findChild<QLabel*>("qt_msgbox_label");
  if (!label || !label->wordWrap()) return;
  layout()->activate();
  const int room = label->contentsRect().width();
  const QFontMetrics letters = label->fontMetrics();
  const QString apart = WithPathsApart(
      text(), [&](const QString& line) { return letters.horizontalAdvance(line) <= room; });
  QStringList lines = apart.split('\n');
  for (QString& line : lines) line = Balanced(line, label->font(), room);
  const QString balanced = lines.join('\n');
  if (balanced != text()) setText(balanced);
  // With shorter lines, Qt may make the box narrower.
  layout()->activate();
  const int left = label->contentsRect().width();
  QMargins margins = label->contentsMargins();
  margins.setRight(margins.right() + left - BalancedWidth(letters, balanced, left));
  label->setContentsMargins(margins);
}

void MessageBox::PutSign() {
  auto* sign = findChild<QLabel*>("qt_msgboxex_icon_label");
  if (sign) sign->setPixmap(SignOf(icon(), devicePixelRatioF()));
}

void MessageBox::MarkPrimaryButton() {
  const QList<QAbstractButton*> all = buttons();
  QAbstractButton* primary = all.size() == 1 ? all.front() : defaultButton();
  if (!primary || primary->property("face") == "primary") return;
  primary->setProperty("face", "primary");
  primary->style()->unpolish(primary);
  primary->style()->polish(primary);
}

}  // namespace marlex
