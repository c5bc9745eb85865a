#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace marlex {

enum class BoxIcon { Critical, Information };

/// What a file dialog is given. The file must exist for an open dialog, and the read-only box is
/// hidden.
struct FileDialog {
  std::string Filter;            // "Text (*.ext)|*.ext"
  std::string DefaultExtension;  // without the point
  std::string InitialDirectory;
  bool AllowMultiselect = false;
};

/// Modal boxes. `MsgBox` and `ShowOpen` return when the operator has answered; events are delivered
/// meanwhile, so that timers and the serial line go on under an open box. Both boxes of a text have
/// one OK key, and one that is open already, with the same caption and body, is not opened again.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

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

  /// Opens the box and returns at once: whoever waits further down the stack goes on, also when
  /// nobody ever reads it.
  void LeaveMsgBox(const std::string& body, BoxIcon icon, const std::string& caption) {
    const Box box{caption, body};
    if (IsOpen(box)) return;
    OpenBoxes.push_back(box);
    OpenBox(body, icon, caption, [this, box] { Forget(box); });
  }

  /// Path of one file; with `AllowMultiselect` and several files, their directory with its final
  /// separator, a blank, and their names separated by blanks. Empty when the operator cancelled.
  virtual std::string ShowOpen(const FileDialog& dialog) = 0;

 protected:
  virtual void ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) = 0;

  /// Does not wait; `onAnswer` is called once, when the box has closed.
  virtual void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
                       std::function<void()> onAnswer) = 0;

 private:
  using Box = std::pair<std::string, std::string>;  // caption and body
  bool IsOpen(const Box& box) const {
    return std::find(OpenBoxes.begin(), OpenBoxes.end(), box) != OpenBoxes.end();
  }
  void Forget(const Box& box) {
    OpenBoxes.erase(std::find(OpenBoxes.begin(), OpenBoxes.end(), box));
  }

  std::vector<Box> OpenBoxes;
};

}  // namespace marlex
