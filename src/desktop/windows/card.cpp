#include "desktop/windows/card.h"

#include <QLayout>
#include <QResizeEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include "desktop/windows/even_row.h"

namespace marlex {

namespace {

constexpr int kTitleFlags = Qt::TextWordWrap | Qt::TextShowMnemonic | Qt::AlignTop;
constexpr int kTitleGap = 10;
constexpr int kTileTitleGap = 2;
constexpr int kPanelTitleGap = 6;

/// A longer word may be broken anywhere, so that a file name never widens a window.
constexpr qsizetype kLongWord = 20;

/// The title with break opportunities in its long words.
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

/// A title runs in the direction of its language, even where a file name follows.
int DirectionOf(const QString& title) {
  return title.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
}

bool HasFace(const QWidget& card, const char* face) {
  return card.property("face").toString() == face;
}

}  // namespace

void Card::ShowTitle(const QString& shown) {
  if (shown == title()) return;
  // A title may contain a running clock: repaint only the lines of the title, not the whole content
  // of the frame.
  setAttribute(Qt::WA_UpdatesDisabled, true);
  const QRect before = TitleArea();
  setTitle(shown);
  setAttribute(Qt::WA_UpdatesDisabled, false);
  update(before.united(TitleArea()));
  MakeRoom();
}

/// At least as wide as the longest word of the title and the even row of cells, and as high as
/// wrapped lines need to be at the current width; the layout alone would count a wrapping line as
/// one.
QSize Card::minimumSizeHint() const {
  const QMargins margins = contentsMargins();
  const int word =
      fontMetrics()
          .boundingRect(QRect(0, 0, 1, QWIDGETSIZE_MAX), kTitleFlags, Breakable(title()))
          .width();
  const int content = qMax(word, EvenWidth(layout()));
  const QSize inside = layout() ? layout()->totalMinimumSize() : QSize();
  const QSize smallest = inside.expandedTo(QSize(content + margins.left() + margins.right(), 0));
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

/// Until a layout has set the frame's width, the title is assumed to fit one line.
QRect Card::TitleArea() const {
  if (title().isEmpty()) return {};
  const QRect room = contentsRect();
  const int width = testAttribute(Qt::WA_Resized) ? room.width() : QWIDGETSIZE_MAX;
  const QRect text = fontMetrics().boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), kTitleFlags,
                                                Breakable(title()));
  return QRect(room.left(), room.top(), room.width(), text.height());
}

int Card::TitleGap() const {
  if (HasFace(*this, "tile")) return kTileTitleGap;
  return HasFace(*this, "panel") ? kPanelTitleGap : kTitleGap;
}

void Card::MakeRoom() {
  if (!layout()) return;
  const QRect area = TitleArea();
  const int top = area.isEmpty() ? 0 : area.height() + TitleGap();
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
  const int place = HasFace(*this, "tile") ? Qt::AlignHCenter : Qt::AlignLeft | Qt::AlignAbsolute;
  painter.drawText(TitleArea(), kTitleFlags | place | DirectionOf(title()), Breakable(title()));
}

}  // namespace marlex
