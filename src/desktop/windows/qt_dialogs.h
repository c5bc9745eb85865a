#pragma once

#include <functional>
#include <string>

#include "desktop/windows/pointers_down.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/event_loop.h"

namespace marlex {

/// Message boxes and file dialogs of Qt, over the window that is in front. What is left standing
/// blocks the editor or dialog that it belongs to, and never the main window. While a key of
/// the mouse or a finger is down nothing comes up. Names are looked up in `files`.
class QtDialogs : public Dialogs {
 public:
  QtDialogs(EventLoop& loop, const Directories& files);

 protected:
  void ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) override;
  void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
               std::function<void()> onAnswer) override;
  void OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) override;

 private:
  EventLoop& Loop;
  const Directories& Files;
  PointersDown Pointers;
};

}  // namespace marlex
