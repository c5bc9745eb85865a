#pragma once

#include <QLabel>

#include "core/glance.h"

namespace marlex {

/// The band at the top of the main window, in letters large enough for passers-by: what is on the
/// loudspeakers, shown by sign, background and name, and beside it the next message.
class GlanceBand {
 public:
  /// `window` must contain the widgets of the band.
  explicit GlanceBand(QWidget& window);

  void Paint(const Glance& glance);

  /// Makes room for the text after its letters have changed.
  void MakeRoom();

 private:
  void PaintOnAir(const Glance& glance);

  QWidget& OnAirBox;
  QWidget& OnAirSign;
  QLabel& OnAirName;
  QWidget& NextBox;
  QLabel& NextTime;
  QLabel& NextMessages;
  Glance Painted;
  bool IsOwnWord = false;  // the text is the system's, not the name of a sound
};

}  // namespace marlex
