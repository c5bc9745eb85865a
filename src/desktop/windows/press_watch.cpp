#include "desktop/windows/press_watch.h"

#include <QGuiApplication>

namespace marlex {

PressWatch::PressWatch(QWidget& widget) : Widget(widget) {
  widget.installEventFilter(this);
  widget.window()->installEventFilter(this);
  connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
          [this](Qt::ApplicationState state) {
            if (state != Qt::ApplicationActive) ReleaseAllBut(Qt::NoButton);
          });
}

bool PressWatch::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
    case QEvent::Close:
      ReleaseAllBut(Qt::NoButton);
      break;
    default:
      if (object == &Widget) FilterOwn(*event);
  }
  return false;
}

void PressWatch::FilterOwn(QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      Press(static_cast<QMouseEvent&>(event));
      break;
    case QEvent::MouseButtonRelease:
      Lift(static_cast<QMouseEvent&>(event).button());
      break;
    case QEvent::MouseMove:
      ReleaseWhatIsUp(static_cast<QMouseEvent&>(event));
      break;
    default:
      break;
  }
}

bool PressWatch::Everywhere::eventFilter(QObject* object, QEvent* event) {
  if (object != &Watch.Widget || event->type() == QEvent::TouchCancel) Watch.FilterOther(*event);
  return false;
}

/// A touch may be cancelled at its window, at a widget that accepted it, or for the whole program,
/// without this widget receiving any event.
void PressWatch::FilterOther(QEvent& event) {
  switch (event.type()) {
    case QEvent::TouchCancel:
      ReleaseAllBut(Qt::NoButton);
      break;
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      ReleaseWhatIsUp(static_cast<QMouseEvent&>(event));
      break;
    default:
      break;
  }
}

void PressWatch::Press(const QMouseEvent& event) {
  if (!Widget.isEnabled()) return;
  Release(event.button());
  Held |= event.button();
  Presser = event.source();
  qGuiApp->installEventFilter(&Others);
  if (OnPress) OnPress(event);
}

void PressWatch::Lift(Qt::MouseButton button) {
  if (Held & button && OnLift) OnLift();
  Release(button);
}

void PressWatch::Release(Qt::MouseButton button) {
  if (!(Held & button)) return;
  Held &= ~Qt::MouseButtons(button);
  if (!Held) qGuiApp->removeEventFilter(&Others);
  if (OnRelease) OnRelease(button);
}

void PressWatch::ReleaseAllBut(Qt::MouseButtons stillHeld) {
  for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    if (!(stillHeld & button)) Release(button);
  }
}

/// A pointer event says which buttons are really down: the release of the others went elsewhere. A
/// mouse knows nothing of a finger that is down, nor a finger of the mouse.
void PressWatch::ReleaseWhatIsUp(const QMouseEvent& event) {
  if (event.source() != Presser) return;
  // The window receives a release before its widget does.
  if (event.type() == QEvent::MouseButtonRelease) Lift(event.button());
  ReleaseAllBut(event.buttons());
}

}  // namespace marlex
