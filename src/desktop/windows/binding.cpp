#include "desktop/windows/binding.h"

#include <algorithm>

#include "desktop/windows/growth.h"
#include "desktop/windows/shown_text.h"

namespace marlex {

WidgetBinding::WidgetBinding(VisualControl& control, QWidget& widget)
    : Source(control), Widget(widget) {
  const bool isFixed = widget.sizePolicy().verticalPolicy() == QSizePolicy::Fixed;
  DesignHeightPixels = isFixed ? widget.minimumHeight() : 0;
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(widget.property("keepsRoom").toBool());
  widget.setSizePolicy(policy);
}

void WidgetBinding::Paint() {
  if (Widget.isHidden() == Source.Visible) Widget.setVisible(Source.Visible);
  PaintEnabled();
  const QString toolTip = ShownToolTip(Source.ToolTipText);
  if (toolTip != Widget.toolTip()) Widget.setToolTip(toolTip);
  PaintColors();
  PaintHeight();
}

/// When a focused button is disabled, Qt would move the focus to its neighbour, and the next press
/// of the space bar would press that one.
void WidgetBinding::PaintEnabled() {
  if (!Source.Enabled && Widget.window()->focusWidget() == &Widget) LeaveFocus();
  Widget.setEnabled(Source.Enabled);
}

void WidgetBinding::LeaveFocus() {
  const QString name = Widget.property("leavesFocusTo").toString();
  auto* next = name.isEmpty() ? nullptr : Widget.window()->findChild<QWidget*>(name);
  next ? next->setFocus() : Widget.clearFocus();
}

/// A lamp is painted by `Lamps`. The two palette colours leave the look to the style sheet. Any
/// other background is a signal: bold text and a thick border make it visible to the colour-blind,
/// too.
void WidgetBinding::PaintColors() {
  if (Widget.property(kLampProperty).isValid()) return;
  const Scheme scheme = ShownScheme();
  const bool isSame = Source.BackColor == PaintedBack && Source.ForeColor == PaintedText;
  if (isSame && scheme == PaintedScheme) return;
  PaintedScheme = scheme;
  PaintedBack = Source.BackColor;
  PaintedText = Source.ForeColor;
  QString rules;
  QColor text = ShownColor(PaintedText);
  if (PaintedBack != kButtonFace) {
    const QColor ground = ShownColor(PaintedBack);
    if (PaintedText == kButtonText) text = TextOn(ground);
    const QColor border = scheme == Scheme::Dark ? ground.lighter(130) : ground.darker(170);
    rules += "background-color: " + ground.name() + "; border: 2px solid " + border.name() +
             "; font-weight: 700; ";
  }
  if (!rules.isEmpty() || PaintedText != kButtonText) rules += "color: " + text.name() + "; ";
  Widget.setStyleSheet(rules.isEmpty() ? rules : "#" + Widget.objectName() + " { " + rules + "}");
}

void WidgetBinding::PaintHeight() {
  const int designTwips = Source.Height.DesignValue();
  if (DesignHeightPixels == 0 || designTwips == 0) return;
  const qreal grown = Widget.window()->property(kGrowthProperty).toReal();
  const int scaled = DesignHeightPixels * Source.Height / designTwips;
  const int height =
      std::max(grown > 1 ? qRound(scaled * grown) : scaled, Widget.minimumSizeHint().height());
  if (height != Widget.minimumHeight() || height != Widget.maximumHeight())
    Widget.setFixedHeight(height);
}

MouseButton MouseButtonOf(Qt::MouseButton button) {
  if (button == Qt::RightButton) return MouseButton::Right;
  return button == Qt::MiddleButton ? MouseButton::Middle : MouseButton::Left;
}

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace marlex
