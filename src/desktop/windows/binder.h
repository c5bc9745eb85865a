#pragma once

#include <QObject>
#include <QWidget>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/hand.h"

namespace marlex {

/// Connects a form to its window: each control to the widget of the same object name, the form's
/// caption and visibility to the window itself. However often a control changes within one event of
/// the system, it is painted once, after it. The window must outlive the binder, and the form both.
class Binder : public QObject {
 public:
  Binder(Form& form, QWidget& window, EventLoop& loop);
  ~Binder() override;

  /// Paints everything again: the colours have changed.
  void PaintAnew();

  /// Called before the window comes up, to give it its place.
  std::function<void(QWidget&)> OnShow;

  /// Called whenever something of the window has been painted.
  std::function<void()> OnPaint;

  /// Escape closes the window, as where closing it does nothing else. Where it has a key to cancel,
  /// Escape is that key; elsewhere it does nothing.
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
  unsigned BroughtToFront = 0;  // the form's ShowCount when the window was last raised
};

}  // namespace marlex
