#pragma once

#include <optional>
#include <string>

#include "platform/event_loop.h"

namespace marlex {

/// Reports to the service manager that started this process, if one did: once that the program is
/// ready, then twice in each period of its watchdog that the event loop turns. When a loop hangs,
/// the reports stay away, and the manager starts the program again.
///
/// Protocol: sd_notify(3), by the environment `NOTIFY_SOCKET`, `WATCHDOG_USEC` and `WATCHDOG_PID`,
/// which child processes do not inherit.
class SignsOfLife {
 public:
  explicit SignsOfLife(EventLoop& loop);
  ~SignsOfLife();
  SignsOfLife(const SignsOfLife&) = delete;
  SignsOfLife& operator=(const SignsOfLife&) = delete;

 private:
  void Report(const char* state);

  EventLoop& Loop;
  std::string Address;  // of the manager's socket; empty without a manager
  int Socket = -1;
  std::optional<EventLoop::TimerId> Timer;
};

}  // namespace marlex
