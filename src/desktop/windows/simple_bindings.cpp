#include "desktop/windows/simple_bindings.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include "desktop/windows/card.h"
#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

class LabelBinding : public WidgetBinding {
 public:
  LabelBinding(Label& label, QLabel& widget)
      : WidgetBinding(label, widget), Shown(label), Widget(widget) {
    widget.setTextFormat(Qt::PlainText);
    // The windows are laid out from left to right in every language, including those that are
    // written from right to left.
    widget.setAlignment(widget.alignment() | Qt::AlignAbsolute);
  }

  void Paint() override {
    WidgetBinding::Paint();
    Widget.setText(ShownText(Shown.Caption));
  }

 private:
  Label& Shown;
  QLabel& Widget;
};

class FrameBinding : public WidgetBinding {
 public:
  FrameBinding(Frame& frame, Card& widget)
      : WidgetBinding(frame, widget), Shown(frame), Widget(widget) {}

  void Paint() override {
    WidgetBinding::Paint();
    Widget.ShowTitle(ShownCaption(Shown.Caption));
  }

 private:
  Frame& Shown;
  Card& Widget;
};

class TextBinding : public WidgetBinding {
 public:
  TextBinding(TextBox& box, QLineEdit& widget, Hand& hand)
      : WidgetBinding(box, widget), Box(box), Widget(widget) {
    QObject::connect(&widget, &QLineEdit::textEdited, [this, &box, &hand](const QString& text) {
      ++EditsUnderWay;
      hand.Forward(box, [&box, typed = text.toStdString()] { box.Text = typed; });
      hand.ForwardAlways([this] { --EditsUnderWay; });
    });
  }

  /// Does not paint over text that the operator has typed in the meantime. That edit will reach the
  /// system too, and the box is painted then.
  void Paint() override {
    WidgetBinding::Paint();
    const QString text = QString::fromStdString(Box.Text);
    if (EditsUnderWay == 0 && text != Widget.text()) Widget.setText(text);
  }

 private:
  TextBox& Box;
  QLineEdit& Widget;
  int EditsUnderWay = 0;  // typed, but not yet known to the system
};

/// Each step of a slider writes a file. So of the steps that a fast hand makes before the system
/// handles them, only the last one counts.
class SliderBinding : public WidgetBinding {
 public:
  SliderBinding(Slider& slider, QSlider& widget, Hand& hand)
      : WidgetBinding(slider, widget), Shown(slider), Widget(widget) {
    QObject::connect(&widget, &QSlider::valueChanged, [this, &slider, &hand](int value) {
      if (Painting) return;
      LastOfHand = value;
      hand.Forward(slider, [this, &slider] { slider.Value = LastOfHand; });
    });
    QObject::connect(&widget, &QSlider::sliderReleased, [this] { Paint(); });
  }

  /// A knob that is held stays under the pointer, whatever value the system has reached.
  void Paint() override {
    WidgetBinding::Paint();
    if (Widget.isSliderDown()) return;
    const PaintGuard guard(Painting);
    Widget.setRange(Shown.Min, Shown.Max);
    Widget.setValue(Shown.Value.Get());
  }

 private:
  Slider& Shown;
  QSlider& Widget;
  bool Painting = false;
  int LastOfHand = 0;
};

/// A menu item, or the title of a submenu.
class MenuBinding : public Binding {
 public:
  MenuBinding(Menu& menu, QAction& action, Hand& hand) : Shown(menu), Action(action) {
    QObject::connect(&action, &QAction::triggered, [&menu, &hand] {
      hand.Forward(menu, [&menu] {
        if (menu.OnClick) menu.OnClick();
      });
    });
  }

  void Paint() override {
    Action.setText(ShownCaption(Shown.Caption));
    Action.setEnabled(Shown.Enabled);
    Action.setVisible(Shown.Visible);
    if (Action.isCheckable()) Action.setChecked(Shown.Checked);
  }

 private:
  Menu& Shown;
  QAction& Action;
};

}  // namespace

std::unique_ptr<Binding> MakeBinding(Label& control, QLabel& widget) {
  return std::make_unique<LabelBinding>(control, widget);
}

std::unique_ptr<Binding> MakeBinding(Frame& control, Card& widget) {
  return std::make_unique<FrameBinding>(control, widget);
}

std::unique_ptr<Binding> MakeBinding(TextBox& control, QLineEdit& widget, Hand& hand) {
  return std::make_unique<TextBinding>(control, widget, hand);
}

std::unique_ptr<Binding> MakeBinding(Slider& control, QSlider& widget, Hand& hand) {
  return std::make_unique<SliderBinding>(control, widget, hand);
}

std::unique_ptr<Binding> MakeBinding(Menu& control, QAction& action, Hand& hand) {
  return std::make_unique<MenuBinding>(control, action, hand);
}

}  // namespace marlex
