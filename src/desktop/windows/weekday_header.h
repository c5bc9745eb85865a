#pragma once

#include <QLabel>

namespace marlex {

/// The line above seven weekday boxes. Its text contains all seven words, separated by blanks; each
/// word is centred over its seventh of the width.
class WeekdayHeader : public QLabel {
 public:
  using QLabel::QLabel;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
