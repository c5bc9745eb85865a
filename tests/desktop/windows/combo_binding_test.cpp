#include "desktop/windows/combo_binding.h"

#include <gtest/gtest.h>

#include "desktop/windows/bench.h"

namespace marlex {
namespace {

/// A combo box with three hours.
struct ComboPlace : Bench {
  ComboPlace() {
    for (const char* hour : {"00", "01", "02"}) Hours.AddItem(hour);
    Hours.OnClick = [this] { ++Clicks; };
    Show();
  }

  QStringList Entries() {
    QStringList entries;
    for (int row = 0; row < Widget.count(); ++row) entries << Widget.itemText(row);
    return entries;
  }

  ComboBox& Hours = Make<ComboBox>("cmbHours");
  QComboBox& Widget = Add<QComboBox>("cmbHours");
  int Clicks = 0;
};

TEST(ComboBinding, ShowsTheEntriesAndNoSelection) {
  ComboPlace place;
  EXPECT_EQ(place.Entries(), (QStringList{"00", "01", "02"}));
  EXPECT_EQ(place.Widget.currentIndex(), -1);
  EXPECT_EQ(place.Widget.currentText(), "");
}

TEST(ComboBinding, ShowsTheSelectionAndItsGoing) {
  ComboPlace place;
  place.Hours.SetListIndex(2);
  place.Settle();
  EXPECT_EQ(place.Widget.currentText(), "02");
  place.Hours.SetListIndex(ListBox::kNoSelection);
  place.Settle();
  EXPECT_EQ(place.Widget.currentText(), "");
  EXPECT_EQ(place.Clicks, 2);
}

TEST(ComboBinding, TakesTheHandsChoiceOnce) {
  ComboPlace place;
  QTest::keyClick(&place.Widget, Qt::Key_Down);
  place.Settle();
  EXPECT_EQ(place.Hours.Text(), "00");
  QTest::keyClick(&place.Widget, Qt::Key_Down);
  place.Settle();
  EXPECT_EQ(place.Hours.Text(), "01");
  EXPECT_EQ(place.Clicks, 2);
}

TEST(ComboBinding, AnOpenBoxKeepsItsPlaceWhileItsEntriesAreTheSame) {
  ComboPlace place;
  place.Hours.SetListIndex(0);
  place.Settle();
  place.Widget.showPopup();
  QTest::keyClick(place.Widget.view(), Qt::Key_Down);
  QTest::keyClick(place.Widget.view(), Qt::Key_Down);
  place.Hours.ToolTipText = "Hours";
  place.Settle();
  EXPECT_TRUE(place.Widget.view()->isVisible());
  EXPECT_EQ(place.Widget.view()->currentIndex().row(), 2);
  QTest::keyClick(place.Widget.view(), Qt::Key_Return);
  place.Settle();
  EXPECT_EQ(place.Hours.Text(), "02");
}

TEST(ComboBinding, AChoiceThatTheSystemRefusesIsNotShown) {
  ComboPlace place;
  place.Hours.SetListIndex(0);
  place.Settle();
  place.Hours.Enabled = false;  // not yet painted
  QTest::keyClick(&place.Widget, Qt::Key_Down);
  place.Settle();
  EXPECT_EQ(place.Hours.Text(), "00");
  EXPECT_EQ(place.Widget.currentText(), "00");
  EXPECT_FALSE(place.Widget.isEnabled());
}

TEST(ComboBinding, EntriesThatHaveGoneAreNotChosen) {
  ComboPlace place;
  place.Widget.setCurrentIndex(1);
  place.Hours.Clear();
  place.Hours.AddItem("23");
  QTest::keyClick(&place.Widget, Qt::Key_Down);
  place.Settle();
  EXPECT_EQ(place.Entries(), QStringList{"23"});
  EXPECT_EQ(place.Hours.ListIndex(), ListBox::kNoSelection);
  EXPECT_EQ(place.Widget.currentText(), "");
}

TEST(ComboBinding, AListThatTheDesignHidesNeedsNoWidget) {
  Bench bench;
  bench.Make<ListBox>("lstWork").Visible = false;
  bench.Show();
  EXPECT_TRUE(bench.Window.isVisible());
}

TEST(ComboBinding, AListThatCanBeSeenNeedsItsWidget) {
  Bench bench;
  bench.Make<ComboBox>("cmbHours");
  EXPECT_THROW(bench.Show(), RuntimeFailure);
}

void TurnWheel(QWidget& widget, int steps) {
  constexpr int kStep = 120;
  const QPointF at = widget.rect().center();
  QWheelEvent event(at, widget.mapToGlobal(at), {}, QPoint(0, steps * kStep), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &event);
}

TEST(ComboBinding, TheWheelOverAClosedBoxChangesNothing) {
  ComboPlace place;
  place.Hours.SetListIndex(1);
  place.Settle();
  for (const bool focused : {false, true}) {
    focused ? place.Widget.setFocus() : place.Widget.clearFocus();
    for (const int steps : {-1, 1, 3}) {
      TurnWheel(place.Widget, steps);
      place.Settle();
      EXPECT_EQ(place.Hours.Text(), "01") << steps;
      EXPECT_EQ(place.Widget.currentText(), "01") << steps;
    }
  }
  EXPECT_EQ(place.Clicks, 1);
}

}  // namespace
}  // namespace marlex
