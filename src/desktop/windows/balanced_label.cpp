#include "desktop/windows/balanced_label.h"

#include <QPainter>
#include <QStyle>

namespace marlex {

/// The narrowest area in which the text takes no more lines than at full width, where the label
/// aligns it.
QRect BalancedLabel::TextArea() const {
  const QRect room = contentsRect();
  const auto needed = [this](int width) {
    return fontMetrics().boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), Qt::TextWordWrap,
                                      text());
  };
  const int lines = needed(room.width()).height();
  int tooNarrow = 0;
  int wideEnough = room.width();
  while (wideEnough - tooNarrow > 1) {
    const int width = (tooNarrow + wideEnough) / 2;
    const QRect text = needed(width);
    const bool fits = text.height() <= lines && text.width() <= width;
    (fits ? wideEnough : tooNarrow) = width;
  }
  return QStyle::alignedRect(layoutDirection(), alignment(), {wideEnough, room.height()}, room);
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
