#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "desktop/amplifier/linked_terminal.h"
#include "platform/event_loop.h"

class QSocketNotifier;

namespace marlex {

/// The amplifier's end of a serial line to a desk on this PC. A desk may come and go: each time
/// that one lets go of the line, the line is plugged in as another device, since the kernel would
/// refuse the next desk one that was opened exclusively before.
class AmplifierLine {
 public:
  AmplifierLine(EventLoop& loop, const std::string& link);
  ~AmplifierLine();
  AmplifierLine(const AmplifierLine&) = delete;
  AmplifierLine& operator=(const AmplifierLine&) = delete;

  /// Plugs the line in. Returns what was wrong, in English; empty if all went well.
  std::string Open();

  /// Whether a desk has the line open.
  bool HasDesk() const { return Reader != nullptr; }

  /// Sends a byte; false if no desk is there to hear it.
  bool Send(char byte);

  std::function<void(std::string_view bytes)> OnBytes;
  std::function<void()> OnDesk;  // a desk has come or gone

 private:
  struct DeleteLater {
    void operator()(QSocketNotifier* notifier) const;
  };

  void Look();
  void Receive();
  void LoseDesk();

  EventLoop& Loop;
  LinkedTerminal Terminal;
  std::unique_ptr<QSocketNotifier, DeleteLater> Reader;  // while there is a desk
  EventLoop::TimerId Timer = 0;
};

}  // namespace marlex
