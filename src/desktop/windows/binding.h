#pragma once

#include <QAbstractButton>
#include <QKeyEvent>
#include <QWidget>
#include <memory>

#include "controls/widgets.h"
#include "desktop/windows/hand.h"
#include "desktop/windows/theme.h"

namespace marlex {

/// The property in which a lamp keeps how it is lit. The style sheet paints it.
inline constexpr const char* kLampProperty = "lit";

/// Connects one control to the widget or action that shows it.
class Binding {
 public:
  Binding() = default;
  virtual ~Binding() = default;
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;

  /// Called immediately at each change of the control, for what would be lost by the time it is
  /// painted.
  virtual void Note() {}

  /// Shows the control's current state. The system never mistakes painting for operator input.
  virtual void Paint() = 0;
};

/// Binds a control to a widget: the part that all kinds of widgets share. A widget with the
/// property `keepsRoom` keeps its space in the layout while it is hidden, so that nothing moves
/// when it comes and goes. A widget that is disabled while it has the keyboard focus passes the
/// focus to the widget named by its property `leavesFocusTo`, or to none.
class WidgetBinding : public Binding {
 public:
  WidgetBinding(VisualControl& control, QWidget& widget);

  /// Shows visibility, enabled state, tool tip and colours. A widget whose layout fixes its height
  /// is scaled with the control's height and the growth of its window, but never below its minimum
  /// size.
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
  int DesignHeightPixels;
};

/// Marks that code is painting a widget, so that the signals this causes are not taken for operator
/// input.
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

/// Whether the key is Enter, on the main keyboard or the number pad.
bool IsEnter(const QKeyEvent& event);

}  // namespace marlex
