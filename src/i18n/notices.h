#pragma once

#include <functional>
#include <string>
#include <utility>

#include "i18n/string_table.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace marlex {

/// Message boxes that do not wait for an answer. Each opens as a separate event and is left open,
/// so that a box that nobody reads never holds up an announcement. The caption, in the chosen
/// language, says what kind of box it is.
class Notices {
 public:
  using Answered = std::function<void()>;

  Notices(EventLoop& loop, Dialogs& dialogs, const StringTable& strings)
      : Loop(loop), TheDialogs(dialogs), Strings(strings) {}

  /// A box captioned "ERROR". `onAnswer` runs as a separate event after the operator's OK.
  void Error(const std::string& body, Answered onAnswer = {}) {
    Leave(body, BoxIcon::Critical, Strings.LoadString(kStrError), std::move(onAnswer));
  }
  void Error(int textId) { Error(Strings.LoadString(textId)); }

  /// A box captioned "Problem".
  void Problem(const std::string& body) {
    Leave(body, BoxIcon::Critical, Strings.LoadString(kStrProblem));
  }

  /// A box captioned "Info".
  void Info(const std::string& body) {
    Leave(body, BoxIcon::Information, Strings.LoadString(kStrInfo));
  }

  /// A box with any other caption.
  void Leave(const std::string& body, BoxIcon icon, const std::string& caption,
             Answered onAnswer = {}) {
    Loop.Post([this, body, icon, caption, onAnswer = std::move(onAnswer)] {
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
