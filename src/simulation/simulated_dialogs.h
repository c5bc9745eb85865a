#pragma once

#include <deque>
#include <functional>
#include <list>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "simulation/journal.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// Dialogs with a scripted operator, who by default answers each one at once, without any time
/// passing.
class SimulatedDialogs : public Dialogs {
 public:
  SimulatedDialogs(VirtualLoop& loop, Journal& journal) : Loop(loop), Log(journal) {}

  struct MessageBox {
    std::string Body;
    std::string Caption;
    BoxIcon Icon;
  };

  static constexpr int kNever = -1;

  /// Milliseconds until the operator answers a box, for boxes that open from now on; 0 for at once,
  /// `kNever` to wait for `Answer`.
  int AnswerAfterMs = 0;

  /// Answers the topmost box. Call between two calls of the loop or from a scheduled event. A
  /// message box gets its OK, a file dialog the next of `OpenResults`.
  void Answer();

  /// Number of boxes that are open.
  int OpenBoxCount() const { return static_cast<int>(Open.size()); }

  /// Whether one of the open boxes is a file dialog.
  bool FileDialogIsOpen() const { return FileDialogOpened; }

  /// Closes all boxes, as the end of the process does.
  void Reset();

  /// Answers to the next file dialogs, in order. An empty text cancels a dialog, and so does an
  /// empty queue.
  std::deque<std::string> OpenResults;

  /// Called just before a file dialog's `onChosen`, in the same event.
  std::function<void(const FileDialog& dialog, const std::string& result)> BeforeChosen;

  /// Result of the save dialog that was answered last.
  std::string LastSavePath;

  /// All message boxes and file dialogs ever shown, in order.
  std::vector<MessageBox> Boxes;
  std::vector<FileDialog> FileDialogs;

 protected:
  void ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) override;
  void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
               std::function<void()> onAnswer) override;
  void OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) override;

 private:
  struct Box {
    bool Answered = false;
    std::function<void()> OnAnswer;  // empty for a box that a wait is blocked on
  };

  void Record(const std::string& body, BoxIcon icon, const std::string& caption);
  void WaitForAnswer();
  void AnswerLater(std::function<void()> onAnswer);
  std::string NextOpenResult();
  void Answer(Box& box);
  void Close(const Box& box);

  VirtualLoop& Loop;
  Journal& Log;
  std::list<Box> Open;  // the topmost comes last
  bool FileDialogOpened = false;
};

}  // namespace marlex
