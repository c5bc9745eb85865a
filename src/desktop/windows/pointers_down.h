#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QWindow>

namespace marlex {

/// Knows whether a key of the mouse or a finger is down in a window of the program. The toolkit
/// keeps one state for all pointers: a mouse that moves makes it forget a finger, and a finger that
/// lifts makes it forget a key.
class PointersDown : public QObject {
 public:
  PointersDown();

  bool Any() const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void FollowMouse(QWindow& window, const QMouseEvent& event);
  void Forget(const QObject& window);

  // The window in which each is down, where it is: what a window does not outlive is over.
  QPointer<QWindow> Clicked;
  QPointer<QWindow> Touched;
};

}  // namespace marlex
