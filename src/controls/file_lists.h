#pragma once

#include <functional>
#include <string>

#include "controls/list_box.h"
#include "platform/directories.h"

namespace marlex {

/// The drives of the PC, one of them selected; `OnClick` is their change.
class DriveListBox : public ListBox {
 public:
  DriveListBox(Form& form, const std::string& name, const Directories& files)
      : ListBox(form, name), Files(files) {}
  const char* Kind() const override { return "DriveListBox"; }

  /// Root of the selected drive.
  std::string Drive() const { return Text(); }

  /// Lists the drives as they are now and selects the first one; raises nothing.
  void Refresh();

  /// Selects the drive on which a directory lies, the innermost of several. Nobody has chosen it,
  /// so nothing is raised.
  void ShowDriveOf(const std::string& directory);

 private:
  const Directories& Files;
};

/// A tree of directories: from the root of all down to the open one, and its subdirectories. Each
/// entry is a whole path, without a final separator. One that is selected stays where it is; a
/// double-click opens it.
class DirListBox : public ListBox {
 public:
  DirListBox(Form& form, const std::string& name, const Directories& files);
  const char* Kind() const override { return "DirListBox"; }
  void ResetToDesign() override;

  /// The open directory.
  const std::string& Path() const { return Open; }

  /// Opens another directory and selects it, which raises `OnChange`. One that is not there, or is
  /// no whole path, changes nothing.
  void SetPath(const std::string& directory);

  void OpenSelected() { SetPath(Text()); }
  void OpenAbove();

  /// Opens the directory from which a search begins; raises nothing.
  void BeginAt(const std::string& directory);

  /// Name of the directory, indented by its place in the tree.
  std::string ShownText(int index) const override;

  std::function<void()> OnChange;

 private:
  const Directories& Files;
  std::string Open;
};

/// Names of the files of a directory that match a pattern.
class FileListBox : public ListBox {
 public:
  FileListBox(Form& form, const std::string& name, const Directories& files)
      : ListBox(form, name), Files(files) {}
  const char* Kind() const override { return "FileListBox"; }
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
