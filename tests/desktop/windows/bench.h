#pragma once

#include <QtTest>
#include <QtWidgets>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/windows/binder.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// A small window with the kinds of control that the main window does not have.
struct Bench {
  /// A control, or an array of them, that outlives the view.
  template <class T, class... Arguments>
  T& Make(Arguments&&... arguments) {
    auto made = std::make_shared<T>(Place, std::forward<Arguments>(arguments)...);
    Made.push_back(made);
    return *made;
  }

  template <class T>
  T& Add(const char* name) {
    auto* widget = new T(&Window);
    widget->setObjectName(name);
    Rows.addWidget(widget);
    return *widget;
  }

  void Show() {
    View.emplace(Place, Window, Loop);
    Place.Show();
    Settle();
  }

  void Settle() {
    for (int round = 0; round < 3; ++round) {
      Loop.Pump();
      QApplication::processEvents();
    }
  }

  VirtualLoop Loop;
  Form Place{"frmBench", "Bench"};
  std::vector<std::shared_ptr<void>> Made;
  QWidget Window;
  QVBoxLayout Rows{&Window};
  std::optional<Binder> View;
};

}  // namespace marlex
