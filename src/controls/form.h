#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/color.h"
#include "controls/control.h"
#include "platform/lifeline.h"

namespace marlex {

/// A window. It exists as long as its system: loading runs `OnLoad` on the design values, and
/// unloading restores them, so that a wait that returns late finds an empty window, never a
/// dangling one.
class Form {
 public:
  Form(std::string name, const std::string& caption)
      : Name(std::move(name)), Self(*this, caption) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  void Load();    // no effect on a loaded form
  void Show();    // loads if necessary, makes visible, brings to the front
  void Unload();  // no effect on a form that is not loaded

  /// Call when the operator closes the window: runs `OnClose` if it is set, else unloads the form.
  void Close();

  bool Loaded() const { return IsLoaded; }

  /// How often the form was shown; the view brings its window to the front each time.
  unsigned ShowCount = 0;

  /// Ties a late answer, or a wait, to this opening of the window, so that it does not affect the
  /// next one.
  Lifeline::Tie ThisOpening() const { return Opening.Now(); }
  template <class Answer>
  auto WhileOpen(Answer answer) const {
    return Opening.Guard(std::move(answer));
  }

  const std::string Name;
  std::vector<Control*> Controls;  // in the order of construction

  std::function<void()> OnLoad;
  std::function<bool()> OnUnload;  // returning false keeps the form loaded
  std::function<void()> OnClose;

 private:
  /// The window as a control, so that its properties are kept, watched and reset like all others.
  class Window : public Control {
   public:
    Window(Form& form, const std::string& caption) : Control(form, ""), Caption(*this, caption) {}
    ControlKind Kind() const override { return ControlKind::Form; }
    Property<std::string> Caption;
    Property<bool> Visible{*this, false};
    Property<Color> BackColor{*this, kButtonFace};
    Property<int> Left{*this, 0};
    Property<int> Top{*this, 0};
    Property<int> Width{*this, 0};
    Property<int> Height{*this, 0};
  };

  Lifeline Opening;  // cut when the form is unloaded
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
  // Set by the view; called when a property of the form itself has changed.
  std::function<void()>& Watcher = Self.Watcher;
};

}  // namespace marlex
