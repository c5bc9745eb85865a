#pragma once

#include <QtTest>
#include <QtWidgets>
#include <string>

#include "core/system.h"
#include "desktop/files/disk_directories.h"
#include "desktop/files/disk_profile_files.h"
#include "desktop/files/temporary_directory.h"
#include "desktop/windows/views.h"
#include "simulation/simulated_pc.h"

namespace marlex {

/// The whole application with its windows off screen, in English, over folders on the real disk.
/// Sound, mixer and time are simulated.
class WholeDesk {
 public:
  WholeDesk() {
    std::filesystem::create_directories(MusicFolder());
    std::filesystem::create_directories(MessageFolder());
    Place.Write("Tolvo.ini",
                "[User language]\r\nLanguage=English\r\n[Selected paths]\r\n"
                "Music directory=" +
                    MusicFolder() + "\r\nMessage directory=" + MessageFolder() + "\r\n");
    Pc.Process.Directory = Place.Path();
    Pc.Process.Directory.pop_back();
  }

  std::string MusicFolder() const { return Place.Path("music") + kSeparator; }
  std::string MessageFolder() const { return Place.Path("messages") + kSeparator; }

  /// Starts the application and goes on until its main window is open.
  void Start() {
    constexpr int kSplashMs = 2500;
    Pc.Loop.Post([this] { Sys.Start(); });
    Settle();
    Pc.Loop.Block(kSplashMs);
    Settle();
  }

  /// Delivers the pending events of both sides.
  void Settle() {
    for (int round = 0; round < 3; ++round) {
      Pc.Loop.Pump();
      QApplication::processEvents();
    }
  }

  /// Lets virtual time pass and updates the screen.
  void Advance(int ms) {
    bool over = false;
    Pc.Loop.Schedule(ms, [&over] { over = true; });
    Pc.Loop.PumpUntil([&over] { return over; });
    Settle();
  }

  /// Selects an item of a menu.
  void Choose(QWidget& window, const char* entry) {
    Find<QAction>(window, entry).trigger();
    Settle();
  }
  void ClickButton(QWidget& window, const char* button) {
    Find<QAbstractButton>(window, button).click();
    Settle();
  }

  void PressKey(QWidget& widget, Qt::Key key) {
    widget.setFocus();
    QTest::keyClick(&widget, key);
    Settle();
  }

  template <class T>
  static T& Find(QWidget& window, const char* name) {
    auto* found = window.findChild<T*>(name);
    if (!found) throw RuntimeFailure(std::string("No widget ") + name);
    return *found;
  }

  test::TemporaryDirectory Place;
  SimulatedPc Pc;
  DiskProfileFiles Profiles;
  DiskDirectories Files;
  System Sys{Pc.Ports(Profiles, Files)};
  Views Screen{Sys.TheWindows, Pc.Loop, [this] { return Sys.ThePasserby.Look(); }};
};

}  // namespace marlex
