#include "desktop/windows/card.h"

#include <QLayout>
#include <QResizeEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace marlex {

namespace {

constexpr int kTitleFlags = Qt::TextWordWrap | Qt::TextShowMnemonic | Qt::AlignTop;
constexpr int kTitleGap = 10;
constexpr int kTileTitleGap = 2;

/// A word longer than this may be broken anywhere, so that the name of a file makes no window
/// wider.
constexpr qsizetype kLongWord = 20;

/// The title with places to break in its long words.
QString Breakable(const QString& title) {
  QStringList words = title.split(' ');
  for (QString& word : words) {
    if (word.size() <= kLongWord) continue;
    QString broken;
    for (const QChar letter : word) broken += QString(letter) + QChar(0x200B);
    word = broken;
  }
  return words.join(' ');
}

bool IsTile(const QWidget& card) { return card.property("face").toString() == "tile"; }

}  // namespace

void Card::ShowTitle(const QString& shown) {
  if (shown == title()) return;
  // A clock runs in a title: only its own lines are painted again, not all that the frame holds.
  setAttribute(Qt::WA_UpdatesDisabled, true);
  const QRect before = TitleArea();
  setTitle(shown);
  setAttribute(Qt::WA_UpdatesDisabled, false);
  update(before.united(TitleArea()));
  MakeRoom();
}

/// At least as wide as the longest word of the title, and as high as wrapped lines need at the
/// present width; a layout alone counts a line that wraps as one.
QSize Card::minimumSizeHint() const {
  const QMargins margins = contentsMargins();
  const int word =
      fontMetrics()
          .boundingRect(QRect(0, 0, 1, QWIDGETSIZE_MAX), kTitleFlags, Breakable(title()))
          .width();
  const QSize smallest =
      QWidget::minimumSizeHint().expandedTo(QSize(word + margins.left() + margins.right(), 0));
  if (!layout() || !layout()->hasHeightForWidth()) return smallest;
  const int wrapped = layout()->totalHeightForWidth(qMax(width(), smallest.width()));
  return smallest.expandedTo(QSize(0, wrapped));
}

void Card::changeEvent(QEvent* event) {
  QGroupBox::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) MakeRoom();
}

void Card::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  MakeRoom();
  if (event->oldSize().width() != width()) updateGeometry();
}

QRect Card::TitleArea() const {
  if (title().isEmpty()) return {};
  const QRect room = contentsRect();
  const QRect text = fontMetrics().boundingRect(QRect(0, 0, room.width(), QWIDGETSIZE_MAX),
                                                kTitleFlags, Breakable(title()));
  return QRect(room.left(), room.top(), room.width(), text.height());
}

void Card::MakeRoom() {
  if (!layout()) return;
  const QRect area = TitleArea();
  const int top = area.isEmpty() ? 0 : area.height() + (IsTile(*this) ? kTileTitleGap : kTitleGap);
  if (layout()->contentsMargins().top() != top) layout()->setContentsMargins(0, top, 0, 0);
}

void Card::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  option.text.clear();
  option.subControls = QStyle::SC_GroupBoxFrame;
  painter.drawComplexControl(QStyle::CC_GroupBox, option);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(TitleArea(), kTitleFlags | (IsTile(*this) ? Qt::AlignHCenter : Qt::AlignLeft),
                   Breakable(title()));
}

}  // namespace marlex
