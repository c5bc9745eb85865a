#include "screen/painted_pixels.h"

#include <algorithm>
#include <functional>

#include "desktop/windows/contrast.h"

namespace marlex {

std::vector<QRgb> PixelsOf(const QImage& picture, const QRectF& area) {
  const qreal ratio = picture.devicePixelRatio();
  const QRect place = QRectF(area.topLeft() * ratio, area.size() * ratio).toAlignedRect();
  const QRect shown = place & picture.rect();
  std::vector<QRgb> pixels;
  for (int y = shown.top(); y <= shown.bottom(); ++y) {
    for (int x = shown.left(); x <= shown.right(); ++x) pixels.push_back(picture.pixel(x, y));
  }
  return pixels;
}

QColor GroundOf(std::vector<QRgb> pixels) {
  if (pixels.empty()) return {};
  const auto middle = pixels.begin() + static_cast<std::ptrdiff_t>(pixels.size() / 2);
  std::nth_element(pixels.begin(), middle, pixels.end(), [](QRgb one, QRgb other) {
    return Luminance(QColor(one)) < Luminance(QColor(other));
  });
  return QColor(*middle);
}

double InkContrast(const std::vector<QRgb>& pixels, const QColor& ground, std::size_t strays) {
  std::vector<double> ratios;
  for (const QRgb pixel : pixels) ratios.push_back(Contrast(QColor(pixel), ground));
  std::sort(ratios.begin(), ratios.end(), std::greater<>());
  return ratios.empty() ? 0 : ratios[std::min(strays, ratios.size() - 1)];
}

double EdgeContrast(const QImage& picture, const Edge& edge) {
  const auto at = [&](double steps) {
    const QPointF place = (edge.Place + edge.Inwards * steps) * picture.devicePixelRatio();
    const QPoint pixel = place.toPoint();
    return picture.rect().contains(pixel) ? picture.pixelColor(pixel) : QColor();
  };
  const QColor ground = at(edge.Ground);
  if (!ground.isValid()) return 0;
  double strongest = 0;
  for (const double depth : {0.0, 0.5, 1.0, 1.5, 2.0, 2.5, 3.0}) {
    const QColor line = at(depth);
    if (line.isValid()) strongest = std::max(strongest, Contrast(line, ground));
  }
  return strongest;
}

double BorderContrast(const QImage& picture, const QRect& area, bool isWindow) {
  const double ground = isWindow ? 4 : -2;
  const QPointF middle = QRectF(area).center();
  double lowest = 0;
  for (const Edge& edge : {Edge{QPointF(area.left(), middle.y()), {1, 0}, ground},
                           Edge{QPointF(area.right(), middle.y()), {-1, 0}, ground},
                           Edge{QPointF(middle.x(), area.top()), {0, 1}, ground},
                           Edge{QPointF(middle.x(), area.bottom()), {0, -1}, ground}}) {
    const double contrast = EdgeContrast(picture, edge);
    if (contrast > 0) lowest = lowest > 0 ? std::min(lowest, contrast) : contrast;
  }
  return lowest;
}

}  // namespace marlex
