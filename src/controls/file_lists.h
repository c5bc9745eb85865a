#pragma once

#include <functional>
#include <string>

#include "controls/list_box.h"
#include "platform/directories.h"

namespace marlex {

/// The drives of the PC, one of them selected. `OnClick` is raised when the selection changes.
class DriveListBox : public ListBox {
 public:
  DriveListBox(Form& form, const std::string& name, const Directories& files)
      : ListBox(form, name), Files(files) {}
  ControlKind Kind() const override { return ControlKind::DriveListBox; }

  /// Root directory of the selected drive.
  std::string Drive() const { return Text(); }

  /// Lists the current drives and selects the first one; raises no event.
  void Refresh();

  /// Selects the drive that contains a directory, the innermost one if there are several. Raises no
  /// event, since the operator did not choose it.
  void ShowDriveOf(const std::string& directory);

 private:
  const Directories& Files;
};

/// A tree of directories: the path from the root to the open directory, followed by its
/// subdirectories. Each entry is an absolute path without a final separator. Selecting an entry
/// does not open it; a double-click does.
class DirListBox : public ListBox {
 public:
  DirListBox(Form& form, const std::string& name, const Directories& files);
  ControlKind Kind() const override { return ControlKind::DirListBox; }
  void ResetToDesign() override;

  /// The open directory.
  const std::string& Path() const { return Open; }

  /// Opens a different directory and selects it, which raises `OnChange`. Has no effect for a path
  /// that does not exist or is not absolute.
  void SetPath(const std::string& directory);

  void OpenSelected() { SetPath(Text()); }
  void OpenAbove();

  /// Opens the initial directory; raises no event.
  void BeginAt(const std::string& directory);

  /// Name of the directory, indented by its depth in the tree.
  std::string ShownText(int index) const override;

  std::function<void()> OnChange;

 private:
  const Directories& Files;
  std::string Open;
};

/// The names of the files in a directory that match a pattern.
class FileListBox : public ListBox {
 public:
  FileListBox(Form& form, const std::string& name, const Directories& files)
      : ListBox(form, name), Files(files) {}
  ControlKind Kind() const override { return ControlKind::FileListBox; }
  void ResetToDesign() override;

  const std::string& Path() const { return Directory; }
  void SetPath(const std::string& directory);
  void SetPattern(const std::string& pattern);

 private:
  void Refresh();

  const Directories& Files;
  std::string Directory;
  std::string Pattern = "*";
};

}  // namespace marlex
