#pragma once

#include <memory>
#include <string>

#include "sound/child_process.h"

namespace marlex::stage {

/// The session manager of a desktop, speaking the X session management protocol. It answers on its
/// own thread, since a program waits for it while starting.
class SessionManager {
 public:
  SessionManager();
  ~SessionManager();
  SessionManager(const SessionManager&) = delete;
  SessionManager& operator=(const SessionManager&) = delete;

  Environment Variables() const;

  /// Whether a program has joined the session and reported that it is ready.
  bool HasClient() const;

  /// Asks all programs whether the session may end, and ends them once they have answered.
  void EndSession();

  /// Asks them the same question, but then lets the session go on.
  void AskAndGoOn();

  /// Whether the programs have answered the question of `AskAndGoOn`.
  bool WentOn() const;

 private:
  class Protocol;
  std::unique_ptr<Protocol> Inner;
};

}  // namespace marlex::stage
