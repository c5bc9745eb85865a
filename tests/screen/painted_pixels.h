#pragma once

#include <QtGui>
#include <vector>

namespace marlex {

/// The pixels of a part of a picture. Areas and places count in the coordinates of the window that
/// the picture shows, whatever its density.
std::vector<QRgb> PixelsOf(const QImage& picture, const QRectF& area);

/// The pixel that half of the others are darker than: the ground of a text or mark, which covers
/// less than half of it.
QColor GroundOf(std::vector<QRgb> pixels);

/// Contrast of what is painted on a ground. The strokes of small letters are seldom whole pixels:
/// the strongest ones count, but for so many strays.
double InkContrast(const std::vector<QRgb>& pixels, const QColor& ground, std::size_t strays);

/// Where a line begins, seen from outside, and where its ground is measured.
struct Edge {
  QPointF Place;
  QPointF Inwards;     // one pixel further in
  double Ground = -2;  // pixels inwards
};

/// Contrast of the strongest of the first pixels inwards with the ground. 0 where the picture ends.
double EdgeContrast(const QImage& picture, const Edge& edge);

/// The lowest contrast of the edges of an area with what is around it. A window has nothing around
/// it: its border is compared with what it encloses.
double BorderContrast(const QImage& picture, const QRect& area, bool isWindow = false);

}  // namespace marlex
