#pragma once

#include "controls/widgets.h"

namespace marlex {

/// Gives a control the caption of its design, and as its tag the id of the text that a translation
/// puts in the caption's place.
inline void Text(VisualControl& control, const char* caption, const char* tag = "") {
  control.Caption = caption;
  control.Tag = tag;
}

}  // namespace marlex
