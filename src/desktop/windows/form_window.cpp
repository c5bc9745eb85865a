#include "desktop/windows/form_window.h"

#include <utility>

namespace marlex {

FormWindow::FormWindow(Form& form, EventLoop& loop, WindowDesign design)
    : Shown(form), Loop(loop), Later(loop), Design(std::move(design)) {
  Shown.Watcher = [this] { MakeIfShown(); };
  MakeIfShown();
}

FormWindow::~FormWindow() { Shown.Watcher = nullptr; }

QWidget& FormWindow::Widget() {
  Make();
  return *Window;
}

void FormWindow::RepaintAll() {
  if (Window) WindowBinder->RepaintAll();
}

/// As an event of its own, since the system shows the form in the middle of its work.
void FormWindow::MakeIfShown() {
  if (Shown.Visible) Later.ForwardAlways([this] { Make(); });
}

void FormWindow::Make() {
  if (Window) return;
  Window = Design.Make();
  WindowBinder = std::make_unique<Binder>(Shown, *Window, Loop);
  WindowBinder->OnShow = Design.Place;
  WindowBinder->EscapeCloses = Design.EscapeCloses;
}

}  // namespace marlex
