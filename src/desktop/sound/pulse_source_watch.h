#pragma once

#include <atomic>
#include <string>

#include "desktop/sound/pulse_connection.h"

namespace marlex {

/// Notices when the microphone comes to the sound server and goes, whether it is open or not. Call
/// everything under the connection's lock.
class PulseSourceWatch {
 public:
  /// `connection` and `isGone`, which is kept up to date, must outlive the watch.
  PulseSourceWatch(PulseConnection& connection, const std::string& source,
                   std::atomic<bool>& isGone);
  ~PulseSourceWatch();
  PulseSourceWatch(const PulseSourceWatch&) = delete;
  PulseSourceWatch& operator=(const PulseSourceWatch&) = delete;

 private:
  void Ask();
  void EndAsking();

  PulseConnection& Connection;
  const std::string Source;
  std::atomic<bool>& IsGone;
  pa_operation* Asking = nullptr;
  bool IsHere = false;  // in the answer so far
};

}  // namespace marlex
