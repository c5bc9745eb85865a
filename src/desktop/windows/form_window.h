#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "controls/form.h"
#include "desktop/windows/binder.h"
#include "desktop/windows/hand.h"

namespace marlex {

/// How a window is made.
struct WindowDesign {
  std::function<std::unique_ptr<QWidget>()> Make;
  std::function<void(QWidget&)> Place;  // sets position and size, before the window is shown
  bool EscapeCloses = false;            // see `Binder`
};

/// The window of a form, with the binder between them. It is made when the form is first shown, or
/// when somebody asks for it, and then kept: most windows are not opened for months, and making
/// them all would take half of the start. The form must outlive this object.
class FormWindow {
 public:
  FormWindow(Form& form, EventLoop& loop, WindowDesign design);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  /// The window, made if necessary.
  QWidget& Widget();

  /// Repaints the window, if it is made; call when the colours have changed.
  void RepaintAll();

 private:
  void MakeIfShown();
  void Make();

  Form& Shown;
  EventLoop& Loop;
  Hand Later;
  WindowDesign Design;
  std::unique_ptr<QWidget> Window;
  std::unique_ptr<Binder> WindowBinder;  // destroyed before the window
};

}  // namespace marlex
