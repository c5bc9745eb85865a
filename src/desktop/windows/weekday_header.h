#pragma once

#include <QLabel>

namespace marlex {

/// The line over seven boxes of weekdays. Its text is one for all seven, with blanks between; each
/// of its words is shown over the middle of its seventh of the width.
class WeekdayHeader : public QLabel {
 public:
  using QLabel::QLabel;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
