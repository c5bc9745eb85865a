#pragma once

#include "controls/form.h"
#include "controls/timer.h"
#include "controls/widgets.h"

namespace marlex {

/// The mixer panel, which is never shown. Its sliders and check boxes hold the state of each line,
/// and setting one sets the line. Line 0 is the master. Lines that the mixer does not have exist as
/// controls nevertheless.
struct FrmMxr : Form {
  static constexpr int kLines = 11;
  // Slider positions run from 0, the loudest, to 65535, silence.
  static constexpr int kSilent = 65535;

  // Values of a mute check box.
  static constexpr int kOpen = 0;
  static constexpr int kMuted = 1;

  explicit FrmMxr(EventLoop& loop)
      : Form("FrmMxr", ""), TmrQuit(*this, "TmrQuit", loop, 100, false) {
    for (int line = 0; line < kLines; ++line) {
      Fra[line].Visible = false;
      PicLed[line].Visible = false;
      LblVol[line].Caption = "Volume:";
      LblPan[line].Caption = "Balance:";
      ChkMute[line].Caption = "Mute";
      SldrPan[line].Min = -100;
      SldrPan[line].Max = 100;
    }
  }

  ControlArray<Frame> Fra{*this, "Fra", 0, kLines - 1};
  ControlArray<Label> LblName{*this, "LblName", 0, kLines - 1};
  ControlArray<Label> LblVol{*this, "LblVol", 0, kLines - 1};
  ControlArray<Label> LblPan{*this, "LblPan", 0, kLines - 1};
  ControlArray<Slider> SldrVol{*this, "SldrVol", 0, kLines - 1};
  ControlArray<Slider> SldrPan{*this, "SldrPan", 0, kLines - 1};
  ControlArray<CheckBox> ChkMute{*this, "ChkMute", 0, kLines - 1};
  ControlArray<Picture> PicLed{*this, "PicLed", 0, kLines - 1};
  Timer TmrQuit;
};

}  // namespace marlex
