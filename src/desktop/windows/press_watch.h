#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QWidget>
#include <functional>

namespace marlex {

/// Watches the mouse buttons on a widget and reports exactly one release for each press, however
/// the press ends: on the widget, outside it, or lost because the widget or its window is hidden,
/// because the window is blocked by a box or deactivated, or because the touch is cancelled. A
/// widget that loses the keyboard focus or is disabled keeps its press until the button is
/// released: a call goes on while its zones are chosen for the next one. A finger counts as the
/// left button. A press that never ended could leave a microphone open.
class PressWatch : public QObject {
 public:
  explicit PressWatch(QWidget& widget);

  std::function<void(const QMouseEvent&)> OnPress;  // also for the second press of a double-click
  std::function<void(Qt::MouseButton)> OnRelease;

  /// Called before `OnRelease` if the button was really released, not if the press was lost.
  std::function<void()> OnLift;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  /// Sees the events of all objects while a button is held: the one that ends the press may go to
  /// any of them.
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
  Qt::MouseEventSource Presser = Qt::MouseEventNotSynthesized;  // a mouse or a finger
  Everywhere Others{*this};
};

}  // namespace marlex
