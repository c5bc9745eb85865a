#pragma once

#include <optional>
#include <string>

#include "platform/event_loop.h"

namespace marlex {

/// The service manager that has started this process and watches it, where one has: it hears that
/// the event loop turns, once as the sign that the program is ready, then twice in each period of
/// its watchdog. A loop that stands still says nothing, and the manager starts the program again.
///
/// Protocol: sd_notify(3), by the environment `NOTIFY_SOCKET`, `WATCHDOG_USEC` and `WATCHDOG_PID`,
/// which child processes do not inherit.
class ServiceManager {
 public:
  explicit ServiceManager(EventLoop& loop);
  ~ServiceManager();
  ServiceManager(const ServiceManager&) = delete;
  ServiceManager& operator=(const ServiceManager&) = delete;

 private:
  void Report(const char* state);

  EventLoop& Loop;
  std::string Address;  // of the manager's socket; empty without a manager
  int Socket = -1;
  std::optional<EventLoop::TimerId> Watchdog;
};

}  // namespace marlex
