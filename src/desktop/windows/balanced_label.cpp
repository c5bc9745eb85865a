#include "desktop/windows/balanced_label.h"

#include <QPainter>
#include <QStyle>

namespace marlex {

int BalancedWidth(const QFontMetrics& letters, const QString& text, int room) {
  const auto needed = [&](int width) {
    return letters.boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), Qt::TextWordWrap, text);
  };
  const int lines = needed(room).height();
  int tooNarrow = 0;
  int wideEnough = room;
  while (wideEnough - tooNarrow > 1) {
    const int width = (tooNarrow + wideEnough) / 2;
    const QRect area = needed(width);
    const bool fits = area.height() <= lines && area.width() <= width;
    (fits ? wideEnough : tooNarrow) = width;
  }
  return wideEnough;
}

/// The area of the balanced text, where the label aligns it.
QRect BalancedLabel::TextArea() const {
  const QRect room = contentsRect();
  const int width = BalancedWidth(fontMetrics(), text(), room.width());
  return QStyle::alignedRect(layoutDirection(), alignment(), {width, room.height()}, room);
}

/// A text runs in the direction of its language in a window that does not.
void BalancedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  const int direction =
      text().isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
  style()->drawItemText(&painter, TextArea(),
                        static_cast<int>(alignment()) | Qt::TextWordWrap | direction, palette(),
                        isEnabled(), text(), foregroundRole());
}

}  // namespace marlex
