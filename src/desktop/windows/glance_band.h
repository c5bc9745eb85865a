#pragma once

#include <QLabel>

#include "core/glance.h"

namespace marlex {

/// The band at the top of the main window, in letters for those who pass by: what has the
/// loudspeakers, told by sign, ground and name, and beside it the message that comes next.
class GlanceBand {
 public:
  /// `window` has the parts of the band among its widgets.
  explicit GlanceBand(QWidget& window);

  void Paint(const Glance& glance);

 private:
  void PaintOnAir(const Glance& glance);

  QWidget& OnAirBox;
  QWidget& OnAirSign;
  QLabel& OnAirName;
  QWidget& NextBox;
  QLabel& NextTime;
  QLabel& NextMessages;
  Glance Painted;
};

}  // namespace marlex
