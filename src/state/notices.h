#pragma once

#include <functional>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace marlex {

/// Tells the operator something without waiting for an answer: the box comes as an event of its own
/// and is left standing, so that an announcement never stands still behind a box that nobody reads.
class Notices {
 public:
  Notices(EventLoop& loop, Dialogs& dialogs) : Loop(loop), TheDialogs(dialogs) {}

  void Tell(const std::string& body, BoxIcon icon, const std::string& caption) {
    Loop.Post([this, body, icon, caption] { TheDialogs.LeaveMsgBox(body, icon, caption); });
  }

  /// The same; `onAnswer` is an event of its own, after the operator's OK.
  void Tell(const std::string& body, BoxIcon icon, const std::string& caption,
            const std::function<void()>& onAnswer) {
    Loop.Post([this, body, icon, caption, onAnswer] {
      TheDialogs.LeaveMsgBox(body, icon, caption, [this, onAnswer] { Loop.Post(onAnswer); });
    });
  }

 private:
  EventLoop& Loop;
  Dialogs& TheDialogs;
};

}  // namespace marlex
