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

/// Boxes with a scripted operator. At first he answers each at once, with no time between.
class SimulatedDialogs : public Dialogs {
 public:
  SimulatedDialogs(VirtualLoop& loop, Journal& journal) : Loop(loop), Log(journal) {}

  struct MessageBox {
    std::string Body;
    std::string Caption;
    BoxIcon Icon;
  };

  static constexpr int kNever = -1;

  /// Milliseconds until the operator answers the boxes that open from now on; 0 is at once, kNever
  /// waits for `Answer`.
  int AnswerAfterMs = 0;

  /// Answers the box on top, to be called between two calls of the loop or from a scheduled event.
  /// A message box gets its OK, a file dialog the next of `OpenResults`.
  void Answer();

  /// Number of boxes that are open now.
  int OpenBoxCount() const { return static_cast<int>(Open.size()); }

  /// Whether one of them is a file dialog.
  bool FileDialogIsOpen() const { return FileDialogStands; }

  /// Closes all boxes, as the end of the process does.
  void Reset();

  /// Answers of the file dialogs to come, the first one first; an empty text cancels, and so does
  /// an empty list.
  std::deque<std::string> OpenResults;

  /// Called in the event that tells a dialog's asker what was chosen, just before he is told.
  std::function<void(const FileDialog& dialog, const std::string& result)> BeforeChosen;

  /// Path that the last save dialog that was answered has given.
  std::string LastSavePath;

  /// All boxes and file dialogs that were shown, the last one last.
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
    std::function<void()> OnAnswer;  // empty where a wait stands in the box
  };

  void Record(const std::string& body, BoxIcon icon, const std::string& caption);
  void WaitForAnswer();
  void LeaveStanding(std::function<void()> onAnswer);
  std::string NextOpenResult();
  void Answer(Box& box);
  void Close(const Box& box);

  VirtualLoop& Loop;
  Journal& Log;
  std::list<Box> Open;  // the top one last
  bool FileDialogStands = false;
};

}  // namespace marlex
