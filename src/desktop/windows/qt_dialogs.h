#pragma once

#include <functional>
#include <string>

#include "desktop/windows/pointers_down.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/event_loop.h"

namespace marlex {

/// Message boxes and file dialogs of Qt, on top of the front window. A dialog that stays open
/// blocks the editor or dialog that it belongs to, never the main window. Nothing that stays open
/// appears while a mouse button or a finger is down. Names are looked up in `files`.
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
