#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/color.h"
#include "controls/control.h"
#include "platform/lifeline.h"

namespace marlex {

/// A window. It lives as long as its system: loading runs `OnLoad` on the design's values,
/// unloading brings the design back, so that a wait that returns late finds an empty window and
/// never a dead one.
class Form {
 public:
  Form(std::string name, const std::string& caption)
      : Name(std::move(name)), Self(*this, caption) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  void Load();    // does nothing on a loaded form
  void Show();    // loads the form where needed, then makes it visible and brings it to the front
  void Unload();  // does nothing on a form that is not loaded

  /// The operator closes the window: `OnClose` decides where it is set, else the form is unloaded.
  void Close();

  bool Loaded() const { return IsLoaded; }

  /// Times the form was shown; a view brings its window to the front at each.
  unsigned ShowCount = 0;

  /// Ties a late answer, or a wait, to this opening of the window: it must leave the next one
  /// alone.
  Lifeline::Tie ThisOpening() const { return Opening.Now(); }
  template <class Answer>
  auto WhileOpen(Answer answer) const {
    return Opening.Guard(std::move(answer));
  }

  const std::string Name;
  std::vector<Control*> Controls;  // in the order of their making

  std::function<void()> OnLoad;
  std::function<bool()> OnUnload;  // False keeps the form loaded
  std::function<void()> OnClose;

 private:
  /// The window itself as a control, so that its properties are kept, watched and reset like all
  /// others.
  class Window : public Control {
   public:
    Window(Form& form, const std::string& caption) : Control(form, ""), Caption(*this, caption) {}
    const char* Kind() const override { return "Form"; }
    Property<std::string> Caption;
    Property<bool> Visible{*this, false};
    Property<Color> BackColor{*this, kButtonFace};
    Property<int> Left{*this, 0};
    Property<int> Top{*this, 0};
    Property<int> Width{*this, 0};
    Property<int> Height{*this, 0};
  };

  Lifeline Opening;  // cut by each unloading
  bool IsLoaded = false;
  bool DesignKept = false;
  Window Self;

 public:
  Property<std::string>& Caption = Self.Caption;
  Property<bool>& Visible = Self.Visible;
  Property<Color>& BackColor = Self.BackColor;
  Property<int>& Left = Self.Left;
  Property<int>& Top = Self.Top;
  Property<int>& Width = Self.Width;
  Property<int>& Height = Self.Height;
  std::function<void()>& Watcher =
      Self.Watcher;  // set by the view; the form's own properties have changed
};

}  // namespace marlex
