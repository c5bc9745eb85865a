#include "controls/control_kind.h"

namespace marlex {

const char* NameOfKind(ControlKind kind) {
  switch (kind) {
    case ControlKind::Form:
      return "Form";
    case ControlKind::Timer:
      return "Timer";
    case ControlKind::Label:
      return "Label";
    case ControlKind::Frame:
      return "Frame";
    case ControlKind::Menu:
      return "Menu";
    case ControlKind::CommandButton:
      return "CommandButton";
    case ControlKind::ToggleButton:
      return "ToggleButton";
    case ControlKind::CheckBox:
      return "CheckBox";
    case ControlKind::OptionButton:
      return "OptionButton";
    case ControlKind::TextBox:
      return "TextBox";
    case ControlKind::Slider:
      return "Slider";
    case ControlKind::PictureBox:
      return "PictureBox";
    case ControlKind::ListBox:
      return "ListBox";
    case ControlKind::ComboBox:
      return "ComboBox";
    case ControlKind::DriveListBox:
      return "DriveListBox";
    case ControlKind::DirListBox:
      return "DirListBox";
    case ControlKind::FileListBox:
      return "FileListBox";
    case ControlKind::Grid:
      return "MSFlexGrid";
  }
  return "";
}

}  // namespace marlex
