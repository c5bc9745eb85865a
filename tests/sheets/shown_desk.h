#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>

#include "desk/desk.h"
#include "desktop/windows/views.h"

namespace marlex {

inline constexpr QSize kSmallScreen(1024, 700);  // 1024 x 768 without the desktop's own bars
inline constexpr QSize kUsualWindow(1160, 760);  // as at first, with the ribbon of the day
inline constexpr QSize kLargeScreen(1920, 1080);

/// Keeps the windows from being painted on the screen, which takes longer than their layout, until
/// somebody looks at them.
class PaintGate : public QObject {
 public:
  PaintGate() { Close(); }

  void Close() { qApp->installEventFilter(this); }

  void Resume() {
    qApp->removeEventFilter(this);
    for (QWidget* window : QApplication::topLevelWidgets()) window->repaint();
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    return event->type() == QEvent::UpdateRequest;
  }
};

/// The application on a simulated PC, with its windows on the screen. As in the program, they exist
/// before the system starts, and follow it from then on. The simulated PC runs the system on its
/// own thread, where no widget may be used: so the windows have a loop of their own, and paint
/// whenever the system has stopped, after each thing that the operator does.
class ShownDesk : public Desk {
 public:
  explicit ShownDesk(const DeskOptions& options) : Desk(options, NameZones, false) {
    Painting.OnFailure = [](const RuntimeFailure& failure) { ADD_FAILURE() << failure.what(); };
    Pc.Loop.AfterTurn = [this] { Follow(); };
    Do([this] { Sys->Start(); });
  }

  /// Lets the splash pass, and gives the main window the size of a small screen, which it then
  /// keeps.
  void ReachMainWindow() {
    Advance(2500);
    Shown.Main().resize(kSmallScreen);
    Settle();
  }

  /// The windows, painted. Before the first call they follow the system without painting.
  Views& Screen() {
    Paints.Resume();
    Settle();
    return Shown;
  }

  /// Delivers what the windows have queued for the system, and paints again.
  void Settle() {
    for (int round = 0; round < 3; ++round) Advance(0);
  }

  PaintGate Paints;

 private:
  void Follow() {
    Painting.Pump();
    QApplication::processEvents();
  }

  static void NameZones(SimulatedPc& pc) {
    int zone = 0;
    for (const char* name : {"Entrance", "Hall A", "Hall B", "Canteen", "Workshop", "Car park"})
      pc.Profiles.WriteString("Zone names", "Zone:" + std::to_string(++zone), name, kIni);
  }

  VirtualLoop Painting;
  Views Shown{Sys->TheWindows, Painting, [this] { return Sys->ThePasserby.Look(); }};
};

}  // namespace marlex
