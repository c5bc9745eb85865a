#pragma once

#include <functional>
#include <string>

#include "platform/dialogs.h"

namespace marlex {

/// Message boxes and file dialogs of Qt, over the window that is in front. Boxes may stand on each
/// other; the one on top is answered first.
class QtDialogs : public Dialogs {
 public:
  std::string ShowOpen(const FileDialog& dialog) override;

 protected:
  void ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) override;
  void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
               std::function<void()> onAnswer) override;
};

}  // namespace marlex
