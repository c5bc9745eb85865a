#pragma once

#include <QLabel>
#include <QWidget>

namespace marlex {

/// Puts the pictures on the keys of a window: each key whose property `glyph` is set in the layout
/// gets the picture of that name ("play", "skip", "stop", "note", "microphone"), in white on keys
/// of a strong colour.
void PutGlyphs(QWidget& window);

/// A picture that stands for itself, in the colour of a text in its place: that of its property
/// `glyph` ("music", "message", "call", "amplifier", "silence", "clock").
class GlyphSign : public QLabel {
 public:
  using QLabel::QLabel;

  QSize sizeHint() const override { return {28, 28}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
