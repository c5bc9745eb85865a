#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QWindow>

namespace marlex {

/// Tracks whether a mouse button or a finger is down in any window of the program. Qt keeps one
/// state for all pointers: a moving mouse makes it forget a finger, and a lifted finger makes it
/// forget a mouse button.
class PointersDown : public QObject {
 public:
  PointersDown();

  bool Any() const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void FollowMouse(QWindow& window, const QMouseEvent& event);
  void Forget(const QObject& window);

  // The window in which each is down, null for none. A press ends with its window.
  QPointer<QWindow> Clicked;
  QPointer<QWindow> Touched;
};

}  // namespace marlex
