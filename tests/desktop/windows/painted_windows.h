#pragma once

#include <QtTest>
#include <QtWidgets>
#include <string>

#include "desktop/windows/views.h"
#include "simulation/memory_disk.h"
#include "simulation/virtual_loop.h"
#include "windows/windows.h"

namespace marlex {

/// All windows of the system, painted off screen, with a loop whose time does not advance.
struct PaintedWindows {
  VirtualLoop Loop;
  MemoryDisk Disk;
  Windows Forms{Loop, Disk};
  Views Screen{Forms, Loop};

  /// Delivers the pending events of both sides.
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

/// The parts of a window that the tab key reaches, from the first one until it comes round.
inline QStringList TabOrder(QWidget& first) {
  QStringList order;
  QWidget* part = &first;
  do {
    const bool stops = (part->focusPolicy() & Qt::TabFocus) != 0 && part->isVisible();
    if (stops && !part->objectName().isEmpty()) order << part->objectName();
    part = part->nextInFocusChain();
  } while (part != &first);
  return order;
}

/// The names of an array of parts: "chkDays_0" to "chkDays_6".
inline QStringList Numbered(const QString& name, int count) {
  QStringList names;
  for (int index = 0; index < count; ++index) names << name + "_" + QString::number(index);
  return names;
}

}  // namespace marlex
