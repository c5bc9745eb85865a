#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QWidget>
#include <functional>

namespace marlex {

/// Watches the mouse keys on a widget and reports exactly one release for each press, however the
/// press ends: on the widget, outside it, or lost because the widget or its window is hidden,
/// disabled, blocked by a box or left. A press that would never end could leave a microphone open.
class PressWatch : public QObject {
 public:
  explicit PressWatch(QWidget& widget);

  std::function<void(const QMouseEvent&)> OnPress;  // the second press of a double-click too
  std::function<void(Qt::MouseButton)> OnRelease;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void FilterOwn(QEvent& event);
  void Press(const QMouseEvent& event);
  void Release(Qt::MouseButton button);
  void ReleaseAllBut(Qt::MouseButtons stillHeld);

  QWidget& Widget;
  Qt::MouseButtons Held;
};

}  // namespace marlex
