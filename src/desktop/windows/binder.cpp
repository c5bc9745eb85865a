#include "desktop/windows/binder.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>

#include "desktop/windows/bind.h"
#include "desktop/windows/reader_names.h"
#include "desktop/windows/shown_text.h"

namespace marlex {

Binder::Binder(Form& form, QWidget& window, EventLoop& loop)
    : Shown(form), Window(window), Operator(loop) {
  window.installEventFilter(this);
  BindControls(window);
  form.Watcher = [this] {
    WindowDirty = true;
    PaintSoon();
  };
  PaintSoon();
}

Binder::~Binder() {
  Shown.Watcher = nullptr;
  for (const auto& bound : Controls) bound->Shown.Watcher = nullptr;
}

void Binder::BindControls(QWidget& window) {
  for (Control* control : Shown.Controls) {
    std::unique_ptr<Binding> binding = Bind(*control, window, Operator);
    if (!binding) continue;
    Controls.push_back(std::make_unique<Bound>(Bound{*control, std::move(binding)}));
    Bound& bound = *Controls.back();
    control->Watcher = [this, &bound] {
      bound.Dirty = true;
      bound.View->Note();
      PaintSoon();
    };
  }
}

void Binder::PaintSoon() {
  if (PaintQueued) return;
  PaintQueued = true;
  Operator.ForwardAlways([this] { PaintAll(); });
}

void Binder::RepaintAll() {
  for (const auto& bound : Controls) bound->Dirty = true;
  PaintSoon();
}

void Binder::PaintAll() {
  PaintQueued = false;
  for (const auto& bound : Controls) {
    if (!bound->Dirty) continue;
    bound->Dirty = false;
    bound->View->Paint();
  }
  if (OnPaint) OnPaint();
  NameForReaders(Window);
  if (WindowDirty) PaintWindow();
}

void Binder::PaintWindow() {
  WindowDirty = false;
  Window.setWindowTitle(ShownText(Shown.Caption));
  if (!Shown.Visible) return Window.hide();
  if (Window.isVisible() && Shown.ShowCount == BroughtToFront) return;
  BroughtToFront = Shown.ShowCount;
  if (!Window.isVisible() && OnShow) OnShow(Window);
  Window.show();
  Window.raise();
  Window.activateWindow();
}

void Binder::CloseForm() {
  Operator.ForwardAlways([this] {
    if (Shown.Visible) Shown.Close();
  });
}

/// The window never closes by itself: the form decides what closing means.
bool Binder::eventFilter(QObject* object, QEvent* event) {
  if (object != &Window) return false;
  if (event->type() == QEvent::Close) {
    event->ignore();
    CloseForm();
    return true;
  }
  const bool isEscape =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  // Qt's own handling of Escape would hide the dialog without the form's knowledge.
  if (!isEscape) return false;
  if (auto* cancel = Window.findChild<QPushButton*>("cmdCancel")) cancel->click();
  if (EscapeCloses) CloseForm();
  return true;
}

}  // namespace marlex
