#include "desktop/windows/backdrop.h"

#include <QLinearGradient>
#include <QPainter>

namespace marlex {

namespace {

constexpr int kWaves = 7;

}  // namespace

void Backdrop::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient night(0, 0, width(), height());
  night.setColorAt(0, QColor(0x0C, 0x20, 0x3D));
  night.setColorAt(0.6, QColor(0x11, 0x3A, 0x70));
  night.setColorAt(1, QColor(0x12, 0x6A, 0xA6));
  painter.fillRect(rect(), night);
  const QPointF source(width() * 0.88, height() * 0.42);
  const qreal step = qMin<qreal>(width() * 0.35, height()) / kWaves;
  for (int wave = 1; wave <= kWaves; ++wave) {
    painter.setPen(QPen(QColor(0x8C, 0xC8, 0xFF, 72 - 9 * wave), step * 0.34));
    painter.drawEllipse(source, step * wave, step * wave);
  }
}

}  // namespace marlex
