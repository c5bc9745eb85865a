#pragma once

#include <functional>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace marlex {

/// Message boxes and file dialogs of Qt, over the window that is in front. Boxes may stand on each
/// other; the one on top is answered first.
class QtDialogs : public Dialogs {
 public:
  explicit QtDialogs(EventLoop& loop);

 protected:
  void ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) override;
  void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
               std::function<void()> onAnswer) override;
  void OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) override;

 private:
  EventLoop& Loop;
};

}  // namespace marlex
