#pragma once

#include <QTouchEvent>
#include <QWidget>
#include <QtTest>

namespace marlex {

/// A finger on one widget, as the window system would report it.
class Finger {
 public:
  explicit Finger(QWidget& widget) : Target(widget) {}

  void Press() { Press(Target.rect().center()); }
  void Press(QPoint at) { Touch().press(kPoint, at, &Target); }
  void Move(QPoint to) { Touch().move(kPoint, to, &Target); }
  void Release() { Release(Target.rect().center()); }
  void Release(QPoint at) { Touch().release(kPoint, at, &Target); }
  void Tap(QPoint at) {
    Press(at);
    Release(at);
  }

  /// Reports to `receiver` that the touch was cancelled.
  static void Cancel(QObject& receiver) {
    QTouchEvent event(QEvent::TouchCancel, Screen());
    QApplication::sendEvent(&receiver, &event);
  }

 private:
  static constexpr int kPoint = 0;

  static QPointingDevice* Screen() {
    static QPointingDevice* const screen = QTest::createTouchDevice();
    return screen;
  }
  QTest::QTouchEventWidgetSequence Touch() { return QTest::touchEvent(&Target, Screen()); }

  QWidget& Target;
};

}  // namespace marlex
