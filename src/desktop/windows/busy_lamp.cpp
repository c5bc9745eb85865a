#include "desktop/windows/busy_lamp.h"

#include <QPainter>

#include "desktop/windows/lamps.h"
#include "desktop/windows/theme.h"

namespace marlex {

void BusyLamp::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  const bool isLit = IsLit(*this);
  const QRectF glass = QRectF(rect()).adjusted(3, 3, -3, -3);
  const qreal ofRing = isLit ? 0.5 : 0;  // keeps it off the thick border of a lit lamp
  const qreal radius = glass.height() / 2 - ofRing;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(isLit ? QPen(ThemeColorNow("on-signal"), 1.5) : QPen(Qt::NoPen));
  painter.setBrush(isLit ? QColor(Qt::white) : ThemeColorNow("off-glyph"));
  painter.drawEllipse(glass.center(), radius, radius);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 255, 255, 120));
  painter.drawEllipse(glass.center() - QPointF(radius, radius) / 3, radius / 3, radius / 3);
}

}  // namespace marlex
