#pragma once

#include <QLabel>

namespace marlex {

/// The lamp above a call button: a bar of glass, in the colour that the style sheet gives it, with
/// a bulb in its middle. The bulb is grey while the lamp is out, and white in a dark ring while
/// it is lit.
class BusyLamp : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
