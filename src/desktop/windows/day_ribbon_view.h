#pragma once

#include <QFrame>
#include <QPainter>

#include "core/day_ribbon.h"

namespace marlex {

/// The day from midnight to midnight, for passers-by, without a word: an announcement is a bar, or
/// a dot if it waits for a music break; below them a strip for the music's hours and a tick for
/// each hour; a line through all of it for now. The tool tip of a mark says its time and messages.
/// Hidden in a window so low that the content needs the room.
class DayRibbonView : public QFrame {
 public:
  explicit DayRibbonView(QWidget* parent = nullptr);

  /// Least height of the window in which the ribbon is shown. Below the height that the main window
  /// has at first, and above that of the lowest screen, where the table needs the room.
  static constexpr int kLeastWindowHeight = 750;

  /// Follows the height of its window from now on.
  void WatchWindow();

  void Paint(const DayRibbon& day);

  int PlaceOf(int minute) const;  // in pixels from the left
  QRect PlaceOf(const DayMark& mark) const;
  QRect PlaceOfMusic() const;  // empty without music

  QSize sizeHint() const override;
  /// None, so that a window can be made low in one step, which hides the ribbon.
  QSize minimumSizeHint() const override { return {0, 0}; }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintMarks(QPainter& painter, DayMarkState state) const;
  void PaintHours(QPainter& painter) const;
  void PaintNow(QPainter& painter) const;
  void ShowTip(const QPoint& at, const QPoint& onScreen);

  DayRibbon Shown;
};

}  // namespace marlex
