#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "platform/event_loop.h"

class QSocketNotifier;

namespace marlex {

/// The end of the operator's session, which must end the program in its own way: SIGTERM, SIGINT
/// and SIGHUP, the session manager's word (Qt's quit event, which a window that stays open would
/// refuse otherwise), and `std::exit`, with which Qt leaves when the display is gone. The session
/// manager's query whether the session may end is not its end: the session may continue.
///
/// A signal that whoever started us had ignored, as `nohup` does with SIGHUP, stays ignored. Needs
/// a running QCoreApplication; there is one object of this class at a time.
class SessionEnd : public QObject {
 public:
  /// `onEnd` is to end the process. It is called on the loop's thread, under whatever loop of Qt
  /// runs and at any depth of nested waits, and again for each further sign of the end.
  SessionEnd(EventLoop& loop, std::function<void()> onEnd);
  ~SessionEnd() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  class Signals;
  static void EndAtExit();
  void End();

  EventLoop& Loop;
  const std::function<void()> OnEnd;
  std::unique_ptr<Signals> Caught;
  std::unique_ptr<QSocketNotifier> Listener;

  static SessionEnd* Current;  // for what the C library calls without an argument
};

}  // namespace marlex
