#pragma once

#include <QtWidgets>

#include "desk/desk.h"
#include "desktop/windows/views.h"

namespace marlex {

/// The application on a simulated PC, with its windows on the screen.
class ShownDesk : public Desk {
 public:
  explicit ShownDesk(const DeskOptions& options) : Desk(options, NameZones, false) {
    Screen = std::make_unique<Views>(Sys->TheWindows, Pc.Loop);
    Pc.Loop.Do([this] { Sys->Start(); });
    Settle();
  }

  /// Lets the splash pass.
  void ReachMainWindow() {
    Advance(2500);
    Settle();
  }

  /// Delivers what waits on both sides.
  void Settle() {
    for (int round = 0; round < 3; ++round) {
      Pc.Loop.Pump();
      QApplication::processEvents();
    }
  }

  std::unique_ptr<Views> Screen;

 private:
  static void NameZones(SimulatedPc& pc) {
    int zone = 0;
    for (const char* name : {"Entrance", "Hall A", "Hall B", "Canteen", "Workshop", "Car park"})
      pc.Profiles.WriteString("Zone names", "Zone:" + std::to_string(++zone), name, kIni);
  }
};

}  // namespace marlex
