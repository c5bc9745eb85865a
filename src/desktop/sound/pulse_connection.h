#pragma once

#include <pulse/pulseaudio.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "desktop/sound/waker.h"

namespace marlex {

/// A connection to the sound server, with the thread that serves it. Use server objects under
/// `Locked` only, or inside callbacks of the server library, which already hold the lock.
class PulseConnection {
 public:
  /// Connects to the session's sound server; null when there is none, or it does not answer within
  /// 1.5 seconds. Never starts a server.
  static std::unique_ptr<PulseConnection> Connect();

  /// Like `Connect`, but for the start of the program, when the session may still be starting too:
  /// waits up to ten seconds for a server that is there or seems to be on its way.
  static std::unique_ptr<PulseConnection> ConnectAtStart();

  PulseConnection();
  ~PulseConnection();
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;

  pa_context* Context() const { return Server; }
  pa_mainloop_api* Api() const { return pa_threaded_mainloop_get_api(Loop); }

  /// Runs `action` under the lock.
  void Locked(const std::function<void()>& action) const;

  /// Waits until `done` returns true; it is called under the lock, at first and after each
  /// `Signal`. False after `limitUs` microseconds.
  bool Await(const std::function<bool()>& done, std::int64_t limitUs);

  /// Microseconds that the server may take for one answer.
  std::int64_t AnswerLimitUs() const { return LimitUs; }

  /// Starts an operation under the lock and waits for it to finish. False when it cannot be started
  /// or takes longer than `AnswerLimitUs`.
  bool Complete(const std::function<pa_operation*()>& start);

  /// For callbacks: reports a change that `Await` may be waiting for.
  void Signal() { Changes.Wake(); }

  bool Good() const;

  /// Called on the server library's thread when the connection is lost.
  std::function<void()> OnLost;

 private:
  static std::unique_ptr<PulseConnection> ConnectWithin(std::int64_t limitUs);
  bool Begin();
  static void StateChanged(pa_context* context, void* self);

  pa_threaded_mainloop* Loop = nullptr;
  pa_context* Server = nullptr;
  std::int64_t LimitUs = 0;
  Waker Changes;
};

/// The card that the streams are pinned to, by the names that the server gives it.
struct PulseCard {
  std::string Sink;
  std::string Source;       // the microphone; empty when there is none
  std::string Description;  // name of the sink, for the operator
  bool Dummy = false;       // the server has no card and pretends to have one
  bool FlatVolume = false;  // setting a stream's volume also moves the card's volume
};

/// Finds the server's default card. False when there is none, or the server does not answer.
bool FindCard(PulseConnection& connection, PulseCard& card);

/// Like `FindCard`, but for the start of the program, when the session may still be starting too: a
/// server without a card gets five seconds to find its first one, and one more for the others.
bool FindCardAtStart(PulseConnection& connection, PulseCard& card);

}  // namespace marlex
