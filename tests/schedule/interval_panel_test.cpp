#include "schedule/interval_panel.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "schedule/editor_desk.h"

namespace marlex {
namespace {

TEST(IntervalText, CoversOneHourFromItsStartAndWrapsWithoutTouchingTheHour) {
  EXPECT_EQ(IntervalText(45, 15), "45,00,15,30");
  EXPECT_EQ(IntervalText(0, 5), "00,05,10,15,20,25,30,35,40,45,50,55");
  EXPECT_EQ(IntervalText(7, 10), "07,17,27,37,47,57");
  EXPECT_EQ(IntervalText(0, 20), "00,20,40");
  EXPECT_EQ(IntervalText(59, 30), "59,29");
}

TEST(IntervalText, EveryTwoMinutesAreJustTheThirtyItemsThatAListMayHave) {
  const std::string minutes = IntervalText(59, 2);
  EXPECT_EQ(minutes.substr(0, 12), "59,01,03,05,");
  EXPECT_EQ(std::count(minutes.begin(), minutes.end(), ','), 29);
  TimeExpressions times;
  times.MinuteExpression = minutes;
  times.ParseMinutes();
  EXPECT_EQ(times.MinuteCount, 30);
}

struct PanelDesk : EditorDesk {
  PanelDesk() {
    Type(TheWavWindow().txtMinutes, "05");
    Click("cmdInterval");
  }
  std::string Shown() {
    return Visible("frMinutes") == Visible("frInterval") ? "both or none"
           : Visible("frInterval")                       ? "interval"
                                                         : "minutes";
  }
};

TEST(IntervalPanel, TakesThePlaceOfTheMinutesUntilItsCancel) {
  PanelDesk desk;
  EXPECT_EQ(desk.Shown(), "interval");
  desk.Click("optInterval_15");
  desk.Click("cmdCancel");
  EXPECT_EQ(desk.Shown(), "minutes");
  EXPECT_EQ(desk.TheWavWindow().txtMinutes.Text.Get(), "05");
}

TEST(IntervalPanel, ItsOkFillsTheMinutesFromTheChosenStart) {
  PanelDesk desk;
  desk.Click("optInterval_15");
  desk.Do([&] { desk.TheWavWindow().cmbStart.SetListIndex(45); });
  desk.Click("cmdOK");
  EXPECT_EQ(desk.TheWavWindow().txtMinutes.Text.Get(), "45,00,15,30");
  EXPECT_EQ(desk.Shown(), "minutes");
}

TEST(IntervalPanel, WithoutAStartItBeginsAtTheFullHour) {
  PanelDesk desk;
  desk.Click("optInterval_30");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.TheWavWindow().txtMinutes.Text.Get(), "00,30");
}

TEST(IntervalPanel, EveryTwoMinutesFromTheLastOneCanBeSaved) {
  PanelDesk desk;
  desk.Click("optInterval_2");
  desk.Do([&] { desk.TheWavWindow().cmbStart.SetListIndex(59); });
  desk.Click("cmdOK");
  const std::string minutes =
      "59,01,03,05,07,09,11,13,15,17,19,21,23,25,27,29,31,33,35,37,39,41,43,45,47,49,51,53,55,57";
  EXPECT_EQ(desk.TheWavWindow().txtMinutes.Text.Get(), minutes);
  desk.Compose("12", minutes);
  desk.SaveAs(EditorDesk::kFile);
  EXPECT_EQ(desk.Saved("Minute(s)"), minutes);
}

TEST(IntervalPanel, WithoutAnIntervalItsOkIsAFailureAndChangesNothing) {
  PanelDesk desk;
  desk.Click("cmdOK");
  desk.Advance(0);
  EXPECT_EQ(desk.LastBox(), "Error: No interval is chosen");
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.front().Icon, BoxIcon::Critical);
  EXPECT_EQ(desk.Shown(), "interval");
  EXPECT_EQ(desk.TheWavWindow().txtMinutes.Text.Get(), "05");
}

TEST(IntervalPanel, OffersSixIntervalsAndTheMinutesOfAnHour) {
  PanelDesk desk;
  std::string intervals;
  for (const auto& interval : desk.TheWavWindow().optInterval)
    intervals += interval->Caption.Get() + " ";
  EXPECT_EQ(intervals, "2 5 10 15 20 30 ");
  ASSERT_EQ(desk.TheWavWindow().cmbStart.ListCount(), 60);
  EXPECT_EQ(desk.TheWavWindow().cmbStart.List(0) + " " + desk.TheWavWindow().cmbStart.List(59),
            "0 59");
}

}  // namespace
}  // namespace marlex
