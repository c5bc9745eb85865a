#include "desktop/windows/logo_mark.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>
#include <array>

namespace marlex {

namespace {

constexpr qreal kField = 100;  // the mark is drawn on a field of 100 by 100
constexpr qreal kCorner = 24;
constexpr qreal kBarWidth = 8.8;
constexpr qreal kFirstBar = 17.6;
constexpr qreal kBarStep = 14;

struct Bar {
  qreal Top;
  qreal Bottom;
};

// The tops fall and rise again, which forms the letter; the two outer bars are its stems.
constexpr std::array<Bar, 5> kBars{{{22, 78}, {36, 64}, {50, 78}, {36, 64}, {22, 78}}};

}  // namespace

void LogoMark::Paint(QPainter& painter, qreal size) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kField, size / kField);
  painter.setPen(Qt::NoPen);
  QLinearGradient field(0, 0, kField, kField);
  field.setColorAt(0, QColor(0x2F, 0x8F, 0xE8));
  field.setColorAt(1, QColor(0x12, 0x4A, 0x9C));
  painter.setBrush(field);
  painter.drawRoundedRect(QRectF(0, 0, kField, kField), kCorner, kCorner);
  QLinearGradient bars(0, 22, 0, 78);
  bars.setColorAt(0, QColor(0xFF, 0xFF, 0xFF));
  bars.setColorAt(1, QColor(0xBF, 0xE3, 0xFF));
  painter.setBrush(bars);
  for (std::size_t bar = 0; bar < kBars.size(); ++bar) {
    const qreal left = kFirstBar + kBarStep * static_cast<qreal>(bar);
    const QRectF area(left, kBars[bar].Top, kBarWidth, kBars[bar].Bottom - kBars[bar].Top);
    painter.drawRoundedRect(area, kBarWidth / 2, kBarWidth / 2);
  }
  painter.restore();
}

QIcon LogoMark::Icon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    Paint(painter, size);
    icon.addPixmap(pixmap);
  }
  return icon;
}

void LogoMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  Paint(painter, qMin(width(), height()));
}

}  // namespace marlex
