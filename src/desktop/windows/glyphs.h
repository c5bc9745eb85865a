#pragma once

#include <QLabel>
#include <QWidget>

namespace marlex {

/// Puts pictures on the buttons of a window: each button whose property `glyph` is set in the
/// layout gets the picture of that name ("play", "skip", "stop", "note", "microphone"), in white on
/// buttons of a strong colour.
void PutGlyphs(QWidget& window);

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
