#include "desktop/windows/busy_lamp.h"

#include <QPainter>

#include "desktop/windows/theme.h"

namespace marlex {

void BusyLamp::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  const bool isLit = palette().color(QPalette::Window) != ThemeColorNow("face");
  const QRectF glass = QRectF(rect()).adjusted(3, 3, -3, -3);
  const qreal radius = glass.height() / 2;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(isLit ? QColor(255, 255, 255, 220) : ThemeColorNow("off-glyph"));
  painter.drawEllipse(glass.center(), radius, radius);
  painter.setBrush(QColor(255, 255, 255, 120));
  painter.drawEllipse(glass.center() - QPointF(radius, radius) / 3, radius / 3, radius / 3);
}

}  // namespace marlex
