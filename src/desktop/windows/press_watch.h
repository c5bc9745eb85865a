#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QWidget>
#include <functional>

namespace marlex {

/// Watches the mouse keys on a widget and reports exactly one release for each press, however the
/// press ends: on the widget, outside it, or lost because the widget or its window is hidden, the
/// window is blocked by a box or left, or the touch is cancelled. A widget that loses the keyboard
/// or is disabled keeps its press until the key is let go: a call goes on while its zones are
/// chosen for the next one. A finger counts as the left key. A press that would never end could
/// leave a microphone open.
class PressWatch : public QObject {
 public:
  explicit PressWatch(QWidget& widget);

  std::function<void(const QMouseEvent&)> OnPress;  // the second press of a double-click too
  std::function<void(Qt::MouseButton)> OnRelease;

  /// Comes before `OnRelease` where the key was let go and the press was not lost.
  std::function<void()> OnLift;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  /// Sees the events of all objects while a key is held: what ends the press may come to any.
  class Everywhere : public QObject {
   public:
    explicit Everywhere(PressWatch& watch) : Watch(watch) {}

   protected:
    bool eventFilter(QObject* object, QEvent* event) override;

   private:
    PressWatch& Watch;
  };

  void FilterOwn(QEvent& event);
  void FilterOther(QEvent& event);
  void Press(const QMouseEvent& event);
  void Lift(Qt::MouseButton button);
  void Release(Qt::MouseButton button);
  void ReleaseAllBut(Qt::MouseButtons stillHeld);
  void ReleaseWhatIsUp(const QMouseEvent& event);

  QWidget& Widget;
  Qt::MouseButtons Held;
  Qt::MouseEventSource Presser = Qt::MouseEventNotSynthesized;  // a mouse, or a finger
  Everywhere Others{*this};
};

}  // namespace marlex
