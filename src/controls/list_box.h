#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/widgets.h"

namespace marlex {

/// A list of texts with at most one selected entry; its design is empty. Indices run from 0; an
/// index out of range is a RuntimeFailure.
class ListBox : public VisualControl {
 public:
  static constexpr int kNoSelection = -1;

  using VisualControl::VisualControl;
  const char* Kind() const override { return "ListBox"; }
  void ResetToDesign() override;

  int ListCount() const { return static_cast<int>(Entries.size()); }
  const std::string& List(int index) const;
  void SetList(int index, const std::string& text);

  void AddItem(const std::string& text);
  void RemoveItem(int index);  // the selection is then none
  void Clear();                // likewise

  int ListIndex() const { return Selected; }

  /// Moves the selection; a move by code raises `OnClick` as the operator's does.
  void SetListIndex(int index);

  /// The entry as the screen shows it.
  virtual std::string ShownText(int index) const { return List(index); }

  /// Text of the selected entry; empty when there is none.
  std::string Text() const;

  std::function<void()> OnClick;
  std::function<void()> OnDblClick;
  std::function<void(int keyCode)> OnKeyDown;
  std::function<void(MouseButton)> OnMouseDown;
  std::function<void()>
      OnMouseMove;  // with the selection already under the pointer while a button is held
  std::function<void()> OnMouseUp;
  std::function<void()> OnGotFocus;

  /// A click here does something at once. Moving the selection by key is then no click, and a held
  /// button does not run over the entries.
  bool ClickActs = false;

  /// An entry that is added comes into view.
  bool ShowsNewest = false;

 protected:
  /// Other entries, and another selection, of which no event tells.
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
  const char* Kind() const override { return "ComboBox"; }
};

inline constexpr int kKeyDelete = 46;

}  // namespace marlex
