#pragma once

#include <QtWidgets>

#include "desk/desk.h"
#include "desktop/windows/views.h"

namespace marlex {

/// The application on a simulated PC, whose windows are shown on the screen on request. Everything
/// that the operator does comes before: the simulated PC runs the system on its own thread, where
/// no widget may be used.
class ShownDesk : public Desk {
 public:
  explicit ShownDesk(const DeskOptions& options) : Desk(options, NameZones, false) {
    Pc.Loop.Do([this] { Sys->Start(); });
  }

  /// Lets the splash pass.
  void ReachMainWindow() { Advance(2500); }

  Views& Screen() {
    if (!Shown)
      Shown = std::make_unique<Views>(Sys->TheWindows, Pc.Loop,
                                      [this] { return Sys->ThePasserby.Look(); });
    Settle();
    return *Shown;
  }

  /// Delivers the pending events of both sides, on the thread of the windows.
  void Settle() {
    for (int round = 0; round < 3; ++round) {
      Pc.Loop.Pump();
      QApplication::processEvents();
    }
  }

 private:
  static void NameZones(SimulatedPc& pc) {
    int zone = 0;
    for (const char* name : {"Entrance", "Hall A", "Hall B", "Canteen", "Workshop", "Car park"})
      pc.Profiles.WriteString("Zone names", "Zone:" + std::to_string(++zone), name, kIni);
  }

  std::unique_ptr<Views> Shown;
};

}  // namespace marlex
