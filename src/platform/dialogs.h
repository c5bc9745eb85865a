#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace marlex {

enum class BoxIcon { Critical, Information };

/// What a file dialog is given. The read-only box is hidden. For an open dialog the file must
/// exist; a save dialog takes a new name, and asks before it takes that of a file that exists.
struct FileDialog {
  std::string Filter;            // "Text (*.ext)|*.ext"
  std::string DefaultExtension;  // without the point
  std::string InitialDirectory;
  bool AllowMultiselect = false;
  bool Save = false;
};

/// What a file dialog itself has to say or ask, in the operator's language.
struct FileDialogTexts {
  std::string Caption;
  std::string NotFound;  // an open dialog of a name that no file has
  std::string Exists;    // a save dialog of a name that a file has: whether to replace it
  std::string Replace;   // the answers to it
  std::string Cancel;
};

/// Modal boxes. `MsgBox` returns when the operator has answered; events are delivered meanwhile, so
/// that timers and the serial line go on under an open box. The others are left standing: whoever
/// waits further down the stack goes on, also when nobody ever answers. Both boxes of a text have
/// one OK key, and one that is open already, with the same caption and body, is not opened again.
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

  /// `onAnswer`, where it is set, is called when the box has closed.
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

  /// What the operator chose. Path of one file; with `AllowMultiselect` and several files, their
  /// directory with its final separator, a blank, and their names separated by blanks. Empty when
  /// it was cancelled.
  using OnChosen = std::function<void(const std::string& result)>;

  /// Leaves a file dialog standing; `onChosen` is an event of its own. False, and nothing happens,
  /// while another file dialog is open.
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

  /// Does not wait; `onAnswer` is called once, when the box has closed.
  virtual void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
                       std::function<void()> onAnswer) = 0;

  /// Does not wait; `onChosen` is called once, as an event, when the dialog has closed.
  virtual void OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) = 0;

  /// For a new program on the same PC, with which all that was open has closed.
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
