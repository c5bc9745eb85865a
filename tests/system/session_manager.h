#pragma once

#include <memory>
#include <string>

#include "system/stage/child_process.h"

namespace marlex::stage {

/// The session manager of a desktop, as the X session management protocol has it. It answers on a
/// thread of its own, since a program waits for it when it starts.
class SessionManager {
 public:
  SessionManager();
  ~SessionManager();
  SessionManager(const SessionManager&) = delete;
  SessionManager& operator=(const SessionManager&) = delete;

  Environment Variables() const;

  /// Whether a program has joined the session and said that it is ready.
  bool HasClient() const;

  /// Asks all programs whether the session may end, and ends them when they have answered.
  void EndSession();

  /// Asks them likewise, and then lets the session go on.
  void AskAndGoOn();

  /// Whether the question of `AskAndGoOn` was answered.
  bool WentOn() const;

 private:
  class Protocol;
  std::unique_ptr<Protocol> Inner;
};

}  // namespace marlex::stage
