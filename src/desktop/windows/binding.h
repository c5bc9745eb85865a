#pragma once

#include <QAbstractButton>
#include <QKeyEvent>
#include <QWidget>
#include <memory>

#include "controls/widgets.h"
#include "desktop/windows/hand.h"
#include "desktop/windows/theme.h"

namespace marlex {

/// One control and what shows it.
class Binding {
 public:
  Binding() = default;
  virtual ~Binding() = default;
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;

  /// Called at once at each change of the control, for what would be lost until it is painted.
  virtual void Note() {}

  /// Shows the control as it is now. Painting never looks to the system like the operator's hand.
  virtual void Paint() = 0;
};

/// Binds `control` to the widget or action of its object name below `window`; null for a control
/// that is never seen, as a list that the design hides. A control that can be seen and has no
/// widget of its kind there is a RuntimeFailure.
std::unique_ptr<Binding> Bind(Control& control, QWidget& window, Hand& hand);

/// Binds a control to a widget: what all widgets show alike. A widget with the property "keepsRoom"
/// keeps its room while it is hidden, so that nothing moves when it comes and goes. A key that is
/// switched off under the keyboard leaves it to the widget that its property "leavesFocusTo" names,
/// else to none.
class WidgetBinding : public Binding {
 public:
  WidgetBinding(VisualControl& control, QWidget& widget);

  /// Shows visibility, state, tool tip and colours. A widget whose layout fixes its height keeps
  /// that height's relation to the control's, but never becomes lower than its content.
  void Paint() override;

 private:
  void PaintEnabled();
  void LeaveFocus();
  void PaintColors();
  void PaintHeight();

  VisualControl& Source;
  QWidget& Widget;
  Color PaintedBack = kButtonFace;
  Color PaintedText = kButtonText;
  Scheme PaintedScheme = ShownScheme();
  int DesignHeightTwips;
  int DesignHeightPixels;
};

/// Throws away what a widget's signal reports while it is painted by code.
class PaintGuard {
 public:
  explicit PaintGuard(bool& painting) : Painting(painting) { Painting = true; }
  ~PaintGuard() { Painting = false; }
  PaintGuard(const PaintGuard&) = delete;
  PaintGuard& operator=(const PaintGuard&) = delete;

 private:
  bool& Painting;
};

MouseButton MouseButtonOf(Qt::MouseButton button);

/// Whether it is the enter key, of the letters or of the digits.
bool IsEnter(const QKeyEvent& event);

}  // namespace marlex
