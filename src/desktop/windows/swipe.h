#pragma once

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QScroller>

namespace marlex {

/// A finger on a view that it scrolls: the content follows it, and keeps scrolling after a flick. A
/// touch that neither moves nor stops a scrolling view is a tap. Positions are those of the
/// viewport.
class Swipe {
 public:
  explicit Swipe(QAbstractItemView& view);

  /// Whether a pointer event comes from a finger, not from a mouse.
  static bool IsOfFinger(const QMouseEvent& event) {
    return event.source() != Qt::MouseEventNotSynthesized;
  }

  void Begin(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  void End();  // however the touch ends

  bool IsOn() const { return On; }
  bool IsTap() const { return Tap; }
  QPoint Start() const { return From; }

 private:
  void Scroll(QScroller::Input input, const QMouseEvent& event);

  QScroller& Scroller;
  bool On = false;
  bool Tap = false;
  QPoint From;
  QPoint Last;
  qint64 LastMs = 0;
};

}  // namespace marlex
