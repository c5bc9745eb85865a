#pragma once

#include <functional>
#include <string>

#include "i18n/string_table.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace marlex {

/// Boxes that tell the operator something without waiting for an answer: each comes as an event of
/// its own and is left open, so that an announcement never stands still behind a box that nobody
/// reads. The caption says what kind it is, in the chosen language.
class Notices {
 public:
  using Answered = std::function<void()>;

  Notices(EventLoop& loop, Dialogs& dialogs, const StringTable& strings)
      : Loop(loop), TheDialogs(dialogs), Strings(strings) {}

  /// "ERROR". `onAnswer` comes as an event of its own after the operator's OK.
  void Error(const std::string& body, Answered onAnswer = {}) {
    Leave(body, BoxIcon::Critical, Strings.LoadString(kStrError), std::move(onAnswer));
  }
  void Error(int textId) { Error(Strings.LoadString(textId)); }

  /// "Problem".
  void Problem(const std::string& body) {
    Leave(body, BoxIcon::Critical, Strings.LoadString(kStrProblem));
  }

  /// "Info".
  void Info(const std::string& body) {
    Leave(body, BoxIcon::Information, Strings.LoadString(kStrInfo));
  }

  /// A box under a caption of its own.
  void Leave(const std::string& body, BoxIcon icon, const std::string& caption,
             Answered onAnswer = {}) {
    Loop.Post([this, body, icon, caption, onAnswer] {
      TheDialogs.LeaveMsgBox(body, icon, caption, [this, onAnswer] {
        if (onAnswer) Loop.Post(onAnswer);
      });
    });
  }

 private:
  EventLoop& Loop;
  Dialogs& TheDialogs;
  const StringTable& Strings;
};

}  // namespace marlex
