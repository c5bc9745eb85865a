#include "desktop/windows/growth.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGridLayout>
#include <algorithm>
#include <cmath>

#include "desktop/windows/glyphs.h"

namespace marlex {

namespace {

constexpr QSize kDesign(1024, 700);
constexpr qreal kLeast = 1.25;  // below it nothing grows
constexpr qreal kMost = 3;
constexpr qreal kStep = 0.125;

/// Letters that grow. Their sizes in a window of the designed size are those of the style sheet.
struct GrowingText {
  const char* Selector;
  qreal Points;
};

constexpr GrowingText kTexts[] = {
    {R"(QLabel[face="onair"], QLabel[face="nexttime"])", 19},
    {R"(QLabel[face="next"], QPushButton[face="call"])", 15},
    {R"(QLabel[face="figure"])", 17},
    {R"(QLabel[face="lamp"])", 12},
    {R"(QLabel[face="notice"])", 11.5},
    {R"(QLabel[face="zone"], QPushButton[face="large"])", 11},
    {R"(#frBGMusic, #frSchedule, #frRouting, QLabel[face="row"])", 10.5},
    {R"(QGroupBox[face="tile"])", 9},
};

constexpr const char* kUngrown = "#frBGMusic *, #frSchedule * { font-size: 10.5pt; }";

/// Minimum size of a part before it grows.
QSize SmallestOf(const QWidget& part) {
  const auto* sign = dynamic_cast<const GlyphSign*>(&part);
  return sign ? sign->sizeHint() : part.minimumSize();
}

QString SheetOf(qreal factor) {
  if (factor == 1) return {};
  QString sheet = kUngrown;
  for (const GrowingText& text : kTexts)
    sheet += QString("%1 { font-size: %2pt; } ").arg(text.Selector).arg(text.Points * factor);
  return sheet;
}

qreal FactorOf(QSize size) {
  const qreal room =
      std::min(qreal(size.width()) / kDesign.width(), qreal(size.height()) / kDesign.height());
  return room < kLeast ? 1 : std::min(std::floor(room / kStep) * kStep, kMost);
}

QSize GapOf(const QLayout& layout) {
  const auto* grid = qobject_cast<const QGridLayout*>(&layout);
  return grid ? QSize(grid->horizontalSpacing(), grid->verticalSpacing())
              : QSize(layout.spacing(), layout.spacing());
}

void SetGap(QLayout& layout, QSize gap) {
  auto* grid = qobject_cast<QGridLayout*>(&layout);
  if (!grid) return layout.setSpacing(gap.width());
  grid->setHorizontalSpacing(gap.width());
  grid->setVerticalSpacing(gap.height());
}

}  // namespace

Growth::Growth(QWidget& window) : Window(window) {
  window.installEventFilter(this);
  for (const char* area : {"frRouting", "frCall", "paneOnAir", "paneNext"})
    Take(*window.findChild<QWidget*>(area));
}

/// The bindings set the fixed heights.
void Growth::Take(QWidget& area) {
  for (QWidget* part : area.findChildren<QWidget*>()) {
    const QSize smallest = SmallestOf(*part);
    const bool isFixed = part->sizePolicy().verticalPolicy() == QSizePolicy::Fixed;
    if (!smallest.isNull() && !isFixed) Parts.push_back({*part, smallest, part->maximumHeight()});
  }
  for (QLayout* layout : area.findChildren<QLayout*>()) Gaps.push_back({*layout, GapOf(*layout)});
}

bool Growth::eventFilter(QObject* object, QEvent* event) {
  if (object != &Window || event->type() != QEvent::Resize) return false;
  const qreal factor = FactorOf(Window.size());
  if (factor != Factor) Grow(factor);
  return false;
}

void Growth::Grow(qreal factor) {
  if (!FreeToShrink) LetShrink();
  Factor = factor;
  Window.setProperty(kGrowthProperty, factor);
  Window.setStyleSheet(SheetOf(factor));
  GrowParts(factor);
  if (OnChange) OnChange();
}

/// A large window may be made as small as before it grew: its parts then shrink with it. The size
/// that the layout has set counts as the window's own only after another one.
void Growth::LetShrink() {
  FreeToShrink = true;
  const QSize smallest = Window.minimumSizeHint();
  Window.setMinimumSize(0, 0);
  Window.setMinimumSize(smallest);
}

void Growth::GrowParts(qreal factor) {
  for (const Part& part : Parts) {
    part.Widget.setMinimumSize(part.Smallest * factor);
    if (part.Highest < QWIDGETSIZE_MAX) part.Widget.setMaximumHeight(qRound(part.Highest * factor));
  }
  for (const Gap& gap : Gaps) SetGap(gap.Layout, gap.Designed * factor);
  for (QAbstractButton* button : Window.findChildren<QAbstractButton*>())
    button->setIconSize(kGlyphSize * factor);
}

void Growth::TakePainted() {
  if (Factor > 1 || !FreeToShrink) return;
  FreeToShrink = false;
  for (QWidget* part : Window.findChildren<QWidget*>()) part->updateGeometry();
  for (QLayout* layout : Window.findChildren<QLayout*>()) layout->invalidate();
  Window.setMinimumSize(0, 0);
}

}  // namespace marlex
