#include "desktop/windows/day_ribbon_view.h"

#include <QEvent>
#include <QHelpEvent>
#include <QStringList>
#include <QToolTip>

#include "desktop/windows/shown_text.h"
#include "desktop/windows/theme.h"

namespace marlex {

namespace {

constexpr int kSideMargin = 14;
constexpr int kHoursPerDay = 24;
constexpr int kLongTick = 6;  // each so many hours

// Rows, in pixels from the top.
constexpr int kNowTop = 2;
constexpr int kMarksTop = 6;
constexpr int kMusicTop = 26;
constexpr int kHoursTop = 32;
constexpr int kNowBottom = 37;
constexpr int kHeight = 40;

constexpr int kMarkHeight = 17;
constexpr int kMusicHeight = 4;
constexpr int kBarWidth = 3;
constexpr int kDotWidth = 7;
constexpr int kWider = 2;  // what stands out, on either side together
constexpr int kReach = 5;  // of a tool tip, from the middle of its mark

const char* ColourOf(DayMarkState state) {
  switch (state) {
    case DayMarkState::Gone:
      return "day-gone";
    case DayMarkState::Conflict:
      return "day-conflict";
    case DayMarkState::Playing:
      return "day-playing";
    case DayMarkState::Coming:
      break;
  }
  return "text";
}

bool StandsOut(DayMarkState state) {
  return state == DayMarkState::Conflict || state == DayMarkState::Playing;
}

}  // namespace

DayRibbonView::DayRibbonView(QWidget* parent) : QFrame(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  hide();
}

void DayRibbonView::WatchWindow() { window()->installEventFilter(this); }

void DayRibbonView::Paint(const DayRibbon& day) {
  if (day == Shown) return;
  Shown = day;
  update();
}

int DayRibbonView::PlaceOf(int minute) const {
  return kSideMargin + (width() - 2 * kSideMargin) * minute / kMinutesPerDay;
}

QRect DayRibbonView::PlaceOf(const DayMark& mark) const {
  const int more = StandsOut(mark.State) ? kWider : 0;
  const int across = (mark.AtBreak ? kDotWidth : kBarWidth) + more;
  QRect place(0, 0, across, mark.AtBreak ? across : kMarkHeight);
  place.moveCenter({PlaceOf(mark.Minute), kMarksTop + kMarkHeight / 2});
  return place;
}

QRect DayRibbonView::PlaceOfMusic() const {
  const int from = PlaceOf(Shown.MusicHours.From);
  return {from, kMusicTop, PlaceOf(Shown.MusicHours.To) - from, kMusicHeight};
}

QSize DayRibbonView::sizeHint() const { return {0, kHeight}; }

bool DayRibbonView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QFrame::event(event);
  const auto& asked = static_cast<const QHelpEvent&>(*event);
  ShowTip(asked.pos(), asked.globalPos());
  return true;
}

/// The window has this height whether or not the ribbon is shown, so that it never comes and goes.
bool DayRibbonView::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize) setVisible(window()->height() >= kLeastWindowHeight);
  return false;
}

/// What matters most is painted last.
void DayRibbonView::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  painter.fillRect(PlaceOfMusic(), ThemeColorNow("day-music"));
  PaintHours(painter);
  PaintNow(painter);
  for (const auto state :
       {DayMarkState::Gone, DayMarkState::Coming, DayMarkState::Conflict, DayMarkState::Playing})
    PaintMarks(painter, state);
}

void DayRibbonView::PaintMarks(QPainter& painter, DayMarkState state) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ThemeColorNow(ColourOf(state)));
  for (const DayMark& mark : Shown.Marks) {
    if (mark.State != state) continue;
    if (mark.AtBreak) {
      painter.drawEllipse(PlaceOf(mark));
    } else {
      painter.drawRect(PlaceOf(mark));
    }
  }
}

void DayRibbonView::PaintHours(QPainter& painter) const {
  const QColor colour = ThemeColorNow("mark-line");
  for (int hour = 0; hour <= kHoursPerDay; ++hour) {
    const bool isLong = hour % kLongTick == 0;
    const int middle = PlaceOf(hour * kMinutesPerDay / kHoursPerDay);
    painter.fillRect(QRect(middle, kHoursTop, isLong ? 2 : 1, isLong ? 5 : 3), colour);
  }
}

void DayRibbonView::PaintNow(QPainter& painter) const {
  constexpr int kArrow = 4;
  const int middle = PlaceOf(Shown.Now);
  painter.fillRect(QRect(middle - 1, kNowTop, 2, kNowBottom - kNowTop), ThemeColorNow("strong"));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ThemeColorNow("strong"));
  painter.drawPolygon(QPolygon(
      {{middle - kArrow, kNowTop}, {middle + kArrow, kNowTop}, {middle, kNowTop + kArrow}}));
}

/// Names each mark within reach, and keeps the tip as long as the pointer stays there.
void DayRibbonView::ShowTip(const QPoint& at, const QPoint& onScreen) {
  QStringList tips;
  for (const DayMark& mark : Shown.Marks) {
    if (qAbs(PlaceOf(mark.Minute) - at.x()) <= kReach) tips << ShownText(mark.Tip);
  }
  const QRect around(at.x() - kReach / 2, 0, kReach, height());
  QToolTip::showText(onScreen, ShownToolTip(tips.join('\n').toStdString()), this, around);
}

}  // namespace marlex
