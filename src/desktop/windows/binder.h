#pragma once

#include <QObject>
#include <QWidget>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/hand.h"

namespace marlex {

/// Connects a form to its window: each control to the widget of the same object name, and the
/// form's caption and visibility to the window itself. However often a control changes within one
/// event of the system, it is painted once, after that event. The window and the form must outlive
/// the binder, and the form must outlive the window.
class Binder : public QObject {
 public:
  Binder(Form& form, QWidget& window, EventLoop& loop);
  ~Binder() override;

  /// Repaints everything; call when the colours have changed.
  void RepaintAll();

  /// Called before the window is shown, to set its position and size.
  std::function<void(QWidget&)> OnShow;

  /// Called after each pass in which controls may have been painted.
  std::function<void()> OnPaint;

  /// Whether Escape closes the window; set it where closing has no other effect. Regardless of
  /// this, Escape presses the cancel button of a window that has one.
  bool EscapeCloses = false;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct Bound {
    Control& Shown;
    std::unique_ptr<Binding> View;
    bool Dirty = true;
  };

  void BindControls(QWidget& window);
  void PaintSoon();
  void PaintAll();
  void PaintWindow();
  void CloseForm();

  Form& Shown;
  QWidget& Window;
  Hand Operator;
  std::vector<std::unique_ptr<Bound>> Controls;
  bool WindowDirty = true;
  bool PaintQueued = false;
  unsigned BroughtToFront = 0;  // the form's `ShowCount` when the window was last raised
};

}  // namespace marlex
