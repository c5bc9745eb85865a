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

  /// Least height of the window in which the ribbon is shown. Above the height that the main window
  /// has at first: while the ribbon is shown, the window cannot be made smaller in one step than
  /// its content and the ribbon.
  static constexpr int kLeastWindowHeight = 780;

  /// Follows the height of its window from now on.
  void WatchWindow();

  void Paint(const DayRibbon& day);

  int PlaceOf(int minute) const;  // in pixels from the left
  QRect PlaceOf(const DayMark& mark) const;
  QRect PlaceOfMusic() const;  // empty when there is none

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

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
