#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "platform/event_loop.h"

class QSocketNotifier;

namespace marlex {

/// The end of the operator's session, on which the program must shut down properly: SIGTERM, SIGINT
/// and SIGHUP, the session manager's request (Qt's quit event, which an open window would otherwise
/// refuse), and `std::exit`, which Qt calls when the display is gone. When the session manager
/// merely asks whether the session may end, nothing happens: the session may continue.
///
/// A signal that the parent process has set to be ignored, as `nohup` does with SIGHUP, stays
/// ignored. Needs a running `QCoreApplication`. Only one object of this class may exist at a time.
class SessionEnd : public QObject {
 public:
  /// `onEnd` should end the process. It is called on the loop's thread, under whatever Qt loop is
  /// running and at any depth of nested waits, and again for each further sign of the end.
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

  static SessionEnd* Current;  // for `std::atexit`, whose callbacks take no argument
};

}  // namespace marlex
