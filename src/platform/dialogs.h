#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace marlex {

enum class BoxIcon { Critical, Information };

/// What a file dialog should ask for. It has no read-only box. In an open dialog only existing
/// files can be chosen; a save dialog takes a new name, and asks before it takes that of an
/// existing file.
struct FileDialog {
  std::string Filter;            // "Text (*.ext)|*.ext"
  std::string DefaultExtension;  // without the dot
  std::string InitialDirectory;
  bool AllowMultiselect = false;
  bool Save = false;
};

/// What boxes and file dialogs themselves say or ask, in the operator's language.
struct FileDialogTexts {
  std::string Caption;
  std::string NotFound;  // in an open dialog: no file has that name
  std::string Exists;    // in a save dialog: a file has that name; replace it?
  std::string Replace;   // the two answers to that
  std::string Cancel;
  std::string Ok = "OK";  // the one button of a message box

  // Of a file dialog's own parts.
  std::string Folder;
  std::string FileName;
  std::string FileType;
  std::string Open;
  std::string Save;
  std::string Back;
  std::string Forward;
  std::string ParentFolder;
};

/// Message boxes and file dialogs. `MsgBox` waits until the operator has answered; timers and the
/// serial line keep working while it waits. Use it only for a box after which the process ends;
/// everything else goes through `Notices`. `LeaveMsgBox` and `LeaveOpen` return at once and leave
/// the box open, so that a wait further down the stack can continue, even if nobody ever answers. A
/// message box has one button, OK. One that is already open, with the same caption and body, is not
/// opened a second time: the call then returns at once.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  FileDialogTexts FileTexts;

  void MsgBox(const std::string& body, BoxIcon icon, const std::string& caption) {
    const Box box{caption, body};
    if (IsOpen(box)) return;
    OpenBoxes.push_back(box);
    try {
      ShowBox(body, icon, caption);
    } catch (...) {
      Forget(box);
      throw;
    }
    Forget(box);
  }

  /// `onAnswer`, if set, is called when the box has closed.
  void LeaveMsgBox(const std::string& body, BoxIcon icon, const std::string& caption,
                   std::function<void()> onAnswer = nullptr) {
    const Box box{caption, body};
    if (IsOpen(box)) return;
    OpenBoxes.push_back(box);
    OpenBox(body, icon, caption, [this, box, onAnswer = std::move(onAnswer)] {
      Forget(box);
      if (onAnswer) onAnswer();
    });
  }

  /// Receives what the operator chose: the path of one file or, with `AllowMultiselect` and several
  /// files, their directory with a final separator, a blank, and their names separated by blanks.
  /// Empty when the dialog was cancelled.
  using OnChosen = std::function<void(const std::string& result)>;

  /// Opens a file dialog and leaves it open; `onChosen` is called as a separate event. False,
  /// without effect, while another file dialog is open.
  bool LeaveOpen(const FileDialog& dialog, OnChosen onChosen) {
    if (FileDialogOpen) return false;
    FileDialogOpen = true;
    OpenFileDialog(dialog, [this, onChosen = std::move(onChosen)](const std::string& result) {
      FileDialogOpen = false;
      onChosen(result);
    });
    return true;
  }

 protected:
  virtual void ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) = 0;

  /// Must not wait; calls `onAnswer` once, when the box has closed.
  virtual void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
                       std::function<void()> onAnswer) = 0;

  /// Must not wait; calls `onChosen` once, as an event, when the dialog has closed.
  virtual void OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) = 0;

  /// For a new program on the same PC: everything that was open closed with the old one.
  void ForgetAll() {
    OpenBoxes.clear();
    FileDialogOpen = false;
  }

 private:
  using Box = std::pair<std::string, std::string>;  // caption and body
  bool IsOpen(const Box& box) const {
    return std::find(OpenBoxes.begin(), OpenBoxes.end(), box) != OpenBoxes.end();
  }
  void Forget(const Box& box) {
    OpenBoxes.erase(std::find(OpenBoxes.begin(), OpenBoxes.end(), box));
  }

  std::vector<Box> OpenBoxes;
  bool FileDialogOpen = false;
};

}  // namespace marlex
