#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "mixer/mixer_access.h"
#include "platform/event_loop.h"
#include "platform/process.h"
#include "windows/frm_mxr.h"

namespace marlex {

/// The events and the display of the mixer panel. The application never shows the panel, so it
/// never uses the display.
class MixerWindow {
 public:
  /// Size of the screen in twips.
  struct Screen {
    int Width = 0;
    int Height = 0;
  };

  MixerWindow(FrmMxr& frmMxr, MixerAccess& mixer, EventLoop& loop, Process& process);

  bool QuitRequested = false;                            // ends the meter loop
  std::vector<std::pair<std::uint32_t, int>> MeterList;  // meter control id, line index

  /// Lays the panel out for the mixer's lines and runs the meters.
  ///
  /// Waits, where there are meters, until the panel is unloaded.
  void ActivateMixerWindow(Screen screen);

 private:
  void ShowStrip(int line);
  void RunLevelMeters();
  void ShowPeak(std::uint32_t meterControlId, int line);
  bool Unload();

  FrmMxr& TheFrmMxr;
  MixerAccess& Mixer;
  EventLoop& Loop;
  Process& TheProcess;
};

}  // namespace marlex
