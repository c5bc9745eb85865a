#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/widgets.h"

namespace marlex {

/// A list of texts with at most one selected entry; its design is empty. Indices count from 0; one
/// out of range is a `RuntimeFailure`.
class ListBox : public VisualControl {
 public:
  static constexpr int kNoSelection = -1;

  using VisualControl::VisualControl;
  ControlKind Kind() const override { return ControlKind::ListBox; }
  void ResetToDesign() override;

  int ListCount() const { return static_cast<int>(Entries.size()); }
  const std::string& List(int index) const;
  void SetList(int index, const std::string& text);

  void AddItem(const std::string& text);
  void RemoveItem(int index);  // also clears the selection
  void Clear();                // likewise

  int ListIndex() const { return Selected; }

  /// Sets the selection; if it changes, `OnClick` is raised, as when the operator selects an entry.
  void SetListIndex(int index);

  /// The entry as shown on the screen.
  virtual std::string ShownText(int index) const { return List(index); }

  /// Text of the selected entry; empty when there is none.
  std::string Text() const;

  std::function<void()> OnClick;
  std::function<void()> OnDblClick;
  std::function<void(int keyCode)> OnKeyDown;
  std::function<void(MouseButton)> OnMouseDown;
  // Called when the pointer moves with a button held; the selection is already under it.
  std::function<void()> OnMouseMove;
  std::function<void()> OnMouseUp;
  std::function<void()> OnGotFocus;

  /// A click in this list has an immediate effect. So moving the selection with the keyboard is not
  /// a click, and the selection does not follow a held mouse button.
  bool ClickActs = false;

  /// An entry that is added is scrolled into view.
  bool ShowsNewest = false;

 protected:
  /// Replaces the entries and the selection; raises no event.
  void Replace(std::vector<std::string> entries, int selected);

 private:
  void RequireIndex(int index) const;

  std::vector<std::string> Entries;
  int Selected = kNoSelection;
};

/// A list that drops down from its selected entry.
class ComboBox : public ListBox {
 public:
  using ListBox::ListBox;
  ControlKind Kind() const override { return ControlKind::ComboBox; }
};

inline constexpr int kKeyDelete = 46;

}  // namespace marlex
