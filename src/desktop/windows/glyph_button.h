#pragma once

#include <QPushButton>

namespace marlex {

/// A button with a picture and a word in its middle: side by side or, where its property `picture`
/// is "above", one above the other, so that buttons in a row can be even in any language. Their
/// distance is the same on every button, whatever room it has: it counts from the last pixel of the
/// picture. A button that is too low for one above the other shows the word alone.
class GlyphButton : public QPushButton {
 public:
  static constexpr int kGap = 8;
  static constexpr int kGapBelow = 7;

  using QPushButton::QPushButton;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Places {
    QPoint Field;  // of the picture
    QRect Word;
  };
  bool IsAbove() const;
  bool HasPicture() const;
  Places PlacesBeside(const QRectF& room) const;
  Places PlacesBelow(const QRectF& room) const;

  /// The painted part of the picture, at its size on the button.
  QRectF Picture() const;
  QSize WordSize() const;
};

}  // namespace marlex
