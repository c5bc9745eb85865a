#pragma once

#include <QLabel>
#include <QPixmap>
#include <QRectF>
#include <QSize>
#include <QWidget>

namespace marlex {

inline constexpr QSize kGlyphSize(22, 22);

/// Puts pictures on the buttons of a window: each button whose property `glyph` is set in the
/// layout gets the picture of that name ("play", "skip", "stop", "note", "microphone"), in white on
/// buttons of a strong colour.
void PutGlyphs(QWidget& window);

/// The picture of that name, alone, in one colour.
QPixmap GlyphPicture(const QString& glyph, const QColor& color, int size, qreal ratio);

/// The part of its square that a picture covers; the square is 1 by 1.
QRectF PaintedPart(const QString& glyph);

/// A picture by itself, in the colour that a text in its place would have. Its property `glyph`
/// names it ("music", "message", "call", "amplifier", "silence", "clock").
class GlyphSign : public QLabel {
 public:
  using QLabel::QLabel;

  QSize sizeHint() const override { return {28, 28}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
