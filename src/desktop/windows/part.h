#pragma once

#include <QWidget>
#include <string>

#include "platform/runtime_failure.h"

namespace marlex {

/// The widget of this name in the main window, which must have it.
template <class Widget>
Widget& Part(QWidget& window, const std::string& name) {
  auto* part = window.findChild<Widget*>(QString::fromStdString(name));
  if (!part) throw RuntimeFailure("The main window has no " + name);
  return *part;
}

}  // namespace marlex
