#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace marlex {

/// A mouse on one widget, as the window system would report it. The pointer may leave the widget
/// while a button is held.
class Mouse {
 public:
  explicit Mouse(QWidget& widget) : Target(widget) {}

  void Press(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    Held |= button;
    Send(QEvent::MouseButtonPress, at, button);
  }
  void Move(QPoint to) { Send(QEvent::MouseMove, to, Qt::NoButton); }
  void Release(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    Held &= ~Qt::MouseButtons(button);
    Send(QEvent::MouseButtonRelease, at, button);
  }
  void Click(QPoint at) {
    Press(at);
    Release(at);
  }
  void DoubleClick(QPoint at) {
    Click(at);
    Held |= Qt::LeftButton;
    Send(QEvent::MouseButtonDblClick, at, Qt::LeftButton);
    Release(at);
  }
  void Press() { Press(Target.rect().center()); }
  void Release() { Release(Target.rect().center()); }
  void Click() { Click(Target.rect().center()); }

 private:
  void Send(QEvent::Type type, QPoint at, Qt::MouseButton button) {
    QMouseEvent event(type, at, Target.mapToGlobal(at), button, Held, Qt::NoModifier);
    QApplication::sendEvent(&Target, &event);
  }

  QWidget& Target;
  Qt::MouseButtons Held;
};

}  // namespace marlex
