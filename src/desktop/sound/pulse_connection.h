#pragma once

#include <pulse/pulseaudio.h>
#include <semaphore.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace marlex {

/// A connection to the sound server with its thread. Server objects are used under `Locked`, or
/// inside the server library's callbacks, which hold the lock already.
class PulseConnection {
 public:
  /// Connects to the session's server within the time limit; null without one. A server is never
  /// started for it.
  static std::unique_ptr<PulseConnection> Connect();

  /// The same at the program's start, when the session may just be starting as well: a server that
  /// is there or seems to come is waited for, up to ten seconds.
  static std::unique_ptr<PulseConnection> ConnectAtStart();

  PulseConnection();
  ~PulseConnection();
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;

  pa_context* Context() const { return Server; }
  pa_mainloop_api* Api() const { return pa_threaded_mainloop_get_api(Loop); }

  /// Runs `action` under the lock.
  void Locked(const std::function<void()>& action) const;

  /// Waits until `done`, which is asked under the lock after each `Signal`; false when the time
  /// limit comes first.
  bool Await(const std::function<bool()>& done, std::int64_t limitUs);

  /// Time that the server may take for one answer.
  std::int64_t AnswerLimitUs() const { return LimitUs; }

  /// Starts an operation under the lock and waits for its end. False at the time limit.
  bool Complete(const std::function<pa_operation*()>& start);

  /// For callbacks: something has changed for which `Await` may wait.
  void Signal() { sem_post(&Changed); }

  bool Good() const;

  /// Called inside the server library's thread when the connection is lost.
  std::function<void()> OnLost;

 private:
  static std::unique_ptr<PulseConnection> ConnectWithin(std::int64_t limitUs);
  bool Begin();
  static void StateChanged(pa_context* context, void* self);

  pa_threaded_mainloop* Loop = nullptr;
  pa_context* Server = nullptr;
  std::int64_t LimitUs = 0;
  sem_t Changed;
};

/// The card that the streams are pinned to, by the server's names.
struct PulseCard {
  std::string Sink;
  std::string Source;       // microphone; empty when there is none
  std::string Description;  // of the sink, for the operator
  bool Dummy = false;       // the server has no card and pretends one
  bool FlatVolume = false;  // a stream's volume at the server moves the card's
};

/// The server's default card. False when it has none.
bool FindCard(PulseConnection& connection, PulseCard& card);

/// The same at the program's start, when the session may just be starting as well: a server that
/// has no card yet gets five seconds for its first one, and one more for the others.
bool FindCardAtStart(PulseConnection& connection, PulseCard& card);

}  // namespace marlex
