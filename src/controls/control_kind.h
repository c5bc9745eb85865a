#pragma once

namespace marlex {

/// Every kind of control. The view that binds controls to widgets and the translation branch on it
/// without a default, so that a new kind does not compile until both know it.
enum class ControlKind {
  Form,
  Timer,
  Label,
  Frame,
  Menu,
  CommandButton,
  ToggleButton,
  CheckBox,
  OptionButton,
  TextBox,
  Slider,
  PictureBox,
  ListBox,
  ComboBox,
  DriveListBox,
  DirListBox,
  FileListBox,
  Grid
};

/// Name of a kind, for messages about a control.
const char* NameOfKind(ControlKind kind);

}  // namespace marlex
