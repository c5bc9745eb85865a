#include "desktop/windows/swipe.h"

#include <QApplication>

namespace marlex {

Swipe::Swipe(QAbstractItemView& view) : Scroller(*QScroller::scroller(&view)) {
  QScrollerProperties properties = Scroller.scrollerProperties();
  for (const auto policy : {QScrollerProperties::HorizontalOvershootPolicy,
                            QScrollerProperties::VerticalOvershootPolicy})
    properties.setScrollMetric(policy, QScrollerProperties::OvershootAlwaysOff);
  properties.setScrollMetric(QScrollerProperties::DragStartDistance,
                             0);  // what is none is told here
  Scroller.setScrollerProperties(properties);
}

/// A touch on entries that still run past would hit one by chance.
void Swipe::Begin(const QMouseEvent& event) {
  On = true;
  Tap = Scroller.state() != QScroller::Scrolling;
  From = event.pos();
  Scroll(QScroller::InputPress, event);
}

void Swipe::Move(const QMouseEvent& event) {
  const int way = (event.pos() - From).manhattanLength();
  if (Tap && way < QApplication::startDragDistance()) return;
  Tap = false;
  Scroll(QScroller::InputMove, event);
}

void Swipe::End() {
  if (On) Scroller.handleInput(QScroller::InputRelease, Last, LastMs);
  On = false;
  Tap = false;
}

void Swipe::Scroll(QScroller::Input input, const QMouseEvent& event) {
  Last = event.pos();
  LastMs = static_cast<qint64>(event.timestamp());
  Scroller.handleInput(input, Last, LastMs);
}

}  // namespace marlex
