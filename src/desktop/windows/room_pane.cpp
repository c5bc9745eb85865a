#include "desktop/windows/room_pane.h"

#include <QLayout>
#include <QResizeEvent>

namespace marlex {

QSize RoomPane::minimumSizeHint() const {
  const QSize smallest = QWidget::minimumSizeHint();
  if (!layout() || !layout()->hasHeightForWidth()) return smallest;
  return smallest.expandedTo(
      QSize(0, layout()->minimumHeightForWidth(qMax(width(), smallest.width()))));
}

void RoomPane::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->oldSize().width() != width()) updateGeometry();
}

}  // namespace marlex
