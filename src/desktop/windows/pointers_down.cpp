#include "desktop/windows/pointers_down.h"

#include <QGuiApplication>

namespace marlex {

namespace {

bool IsShown(const QPointer<QWindow>& window) { return window && window->isVisible(); }

}  // namespace

PointersDown::PointersDown() { qGuiApp->installEventFilter(this); }

bool PointersDown::Any() const {
  return QGuiApplication::mouseButtons() != Qt::NoButton || IsShown(Clicked) || IsShown(Touched);
}

/// Every event reaches the window before its widgets; the end of a touch may go to any object.
bool PointersDown::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::TouchCancel) Touched = nullptr;
  if (!object->isWindowType()) return false;
  auto& window = static_cast<QWindow&>(*object);
  switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
      Touched = &window;
      break;
    case QEvent::TouchEnd:
      Touched = nullptr;
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      FollowMouse(window, static_cast<const QMouseEvent&>(*event));
      break;
    case QEvent::WindowBlocked:  // a blocked window does not see the release
      Forget(window);
      break;
    default:
      break;
  }
  return false;
}

void PointersDown::FollowMouse(QWindow& window, const QMouseEvent& event) {
  if (event.source() != Qt::MouseEventNotSynthesized) return;  // made from a touch
  Clicked = event.buttons() == Qt::NoButton ? nullptr : &window;
}

void PointersDown::Forget(const QObject& window) {
  if (Clicked == &window) Clicked = nullptr;
  if (Touched == &window) Touched = nullptr;
}

}  // namespace marlex
