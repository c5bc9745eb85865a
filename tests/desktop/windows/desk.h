#pragma once

#include <QtTest>
#include <QtWidgets>
#include <string>

#include "desktop/windows/views.h"
#include "simulation/memory_disk.h"
#include "simulation/virtual_loop.h"
#include "windows/windows.h"

namespace marlex {

/// All windows of the system, painted off screen, with a loop whose time stands still.
struct Desk {
  VirtualLoop Loop;
  MemoryDisk Disk;
  Windows Forms{Loop, Disk};
  Views Screen{Forms, Loop};

  /// Delivers what waits on both sides.
  void Settle() {
    for (int round = 0; round < 3; ++round) {
      Loop.Pump();
      QApplication::processEvents();
    }
  }

  void ShowMain() {
    Forms.frmMain.Show();
    Settle();
  }

  template <class T>
  T& Find(const char* name) {
    auto* found = Screen.Main().findChild<T*>(name);
    if (!found) throw RuntimeFailure(std::string("No widget ") + name);
    return *found;
  }
};

}  // namespace marlex
