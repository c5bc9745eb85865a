#include "desktop/windows/swipe.h"

#include <QApplication>

namespace marlex {

Swipe::Swipe(QAbstractItemView& view) : Scroller(*QScroller::scroller(&view)) {
  QScrollerProperties properties = Scroller.scrollerProperties();
  for (const auto policy : {QScrollerProperties::HorizontalOvershootPolicy,
                            QScrollerProperties::VerticalOvershootPolicy})
    properties.setScrollMetric(policy, QScrollerProperties::OvershootAlwaysOff);
  // `Move` itself ignores movements that are too short for a drag.
  properties.setScrollMetric(QScrollerProperties::DragStartDistance, 0);
  Scroller.setScrollerProperties(properties);
}

/// A touch on a list that is still scrolling would hit an entry by chance, so it is no tap.
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
