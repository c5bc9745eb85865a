#include "desktop/windows/figure_label.h"

namespace marlex {

QSize FigureLabel::AsHighAsADigit(QSize size) const {
  const QMargins frame = contentsMargins();
  const QRect line = fontMetrics().boundingRect(QRect(0, 0, 2000, 2000), Qt::AlignTop, "0");
  return {size.width(), qMax(size.height(), line.height() + frame.top() + frame.bottom())};
}

}  // namespace marlex
