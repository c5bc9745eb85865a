#include "desktop/windows/binding.h"

#include <algorithm>

#include "desktop/windows/shown_text.h"
#include "desktop/windows/theme.h"

namespace marlex {

WidgetBinding::WidgetBinding(VisualControl& control, QWidget& widget)
    : Source(control), Widget(widget), DesignHeightTwips(control.Height) {
  const bool isFixed = widget.sizePolicy().verticalPolicy() == QSizePolicy::Fixed;
  DesignHeightPixels = isFixed ? widget.minimumHeight() : 0;
}

void WidgetBinding::Paint() {
  if (Widget.isHidden() == Source.Visible) Widget.setVisible(Source.Visible);
  Widget.setEnabled(Source.Enabled);
  const QString toolTip = ShownToolTip(Source.ToolTipText);
  if (toolTip != Widget.toolTip()) Widget.setToolTip(toolTip);
  PaintColors();
  PaintHeight();
}

/// The two palette colours leave the look to the style sheet; any other is shown as it is.
void WidgetBinding::PaintColors() {
  if (Source.BackColor == PaintedBack && Source.ForeColor == PaintedText) return;
  PaintedBack = Source.BackColor;
  PaintedText = Source.ForeColor;
  QString rules;
  if (PaintedBack != kButtonFace)
    rules += "background-color: " + ShownColor(PaintedBack).name() + "; ";
  if (PaintedText != kButtonText) rules += "color: " + ShownColor(PaintedText).name() + "; ";
  Widget.setStyleSheet(rules.isEmpty() ? rules : "#" + Widget.objectName() + " { " + rules + "}");
}

void WidgetBinding::PaintHeight() {
  if (DesignHeightPixels == 0 || DesignHeightTwips == 0) return;
  const int scaled = DesignHeightPixels * Source.Height / DesignHeightTwips;
  const int height = std::max(scaled, Widget.minimumSizeHint().height());
  if (height != Widget.minimumHeight() || height != Widget.maximumHeight())
    Widget.setFixedHeight(height);
}

MouseButton MouseButtonOf(Qt::MouseButton button) {
  if (button == Qt::RightButton) return MouseButton::Right;
  return button == Qt::MiddleButton ? MouseButton::Middle : MouseButton::Left;
}

}  // namespace marlex
