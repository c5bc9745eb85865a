#pragma once

#include <QLabel>

namespace marlex {

/// A figure that is as high without a text as with one, so that what lies above it stays where it
/// is when the music starts.
class FigureLabel : public QLabel {
 public:
  using QLabel::QLabel;

  QSize minimumSizeHint() const override { return AsHighAsADigit(QLabel::minimumSizeHint()); }
  QSize sizeHint() const override { return AsHighAsADigit(QLabel::sizeHint()); }

 private:
  QSize AsHighAsADigit(QSize size) const;
};

}  // namespace marlex
