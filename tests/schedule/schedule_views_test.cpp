#include "schedule/schedule_views.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

using testing::ElementsAre;

/// Two sequences, the second of which does not run on this Monday.
DeskOptions TwoDays() {
  return {
      .Sequences = {{.File = "a.sch"}, {.File = "b.sch", .Hours = "13", .Weekdays = "0200000"}}};
}

/// What the two day entries, the setting and the table say about the view.
std::string View(Desk& desk) {
  const std::string ticked = std::string(desk.Main().mnuAllDays.Checked ? "all" : "") +
                             (desk.Main().mnuCurrentDay.Checked ? "today" : "");
  return ticked + " " + desk.Setting("Schedule", "All days") + " " +
         std::to_string(desk.Main().grdSchedule.Rows() - 1);
}

TEST(ScheduleViews, TheStartTicksTheViewOfTheSettings) {
  DeskOptions options = TwoDays();
  Desk today(options);
  EXPECT_EQ(View(today), "today No 1");
  EXPECT_FALSE(today.Main().mnuScheduleName.Checked);
  options.AllDays = true;
  options.ScheduleName = true;
  Desk all(options);
  EXPECT_EQ(View(all), "all Yes 2");
  EXPECT_TRUE(all.Main().mnuScheduleName.Checked);
}

TEST(ScheduleViews, EachDayEntryFlipsThePairWhetherOrNotItIsTicked) {
  Desk desk(TwoDays());
  desk.Click("mnuAllDays");
  EXPECT_EQ(View(desk), "all Yes 2");
  desk.Click("mnuAllDays");
  EXPECT_EQ(View(desk), "today No 1");
  desk.Click("mnuCurrentDay");
  EXPECT_EQ(View(desk), "all Yes 2");
  desk.Click("mnuCurrentDay");
  EXPECT_EQ(View(desk), "today No 1");
  desk.Click("mnuCurrentDay");
  desk.Click("mnuAllDays");
  EXPECT_EQ(View(desk), "today No 1");
}

TEST(ScheduleViews, TheDaysAreShownInTheViewOfAllDaysOnly) {
  Desk desk(TwoDays());
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kDaysColumn), 0);
  desk.Click("mnuAllDays");
  EXPECT_THAT(desk.Rows(),
              ElementsAre("12:01  |1234567|123456||welcome", "13:01  |0200000|123456||welcome"));
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kDaysColumn), 800);
  desk.Click("mnuAllDays");
  EXPECT_THAT(desk.Rows(), ElementsAre("12:01  ||123456||welcome"));
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kDaysColumn), 0);
}

TEST(ScheduleViews, TheNamesComeAndGoWithTheirEntry) {
  Desk desk(TwoDays());
  desk.Click("mnuScheduleName");
  EXPECT_TRUE(desk.Main().mnuScheduleName.Checked);
  EXPECT_EQ(desk.Setting("Schedule", "View"), "Yes");
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kNameColumn), 1800);
  EXPECT_THAT(desk.Rows(), ElementsAre("12:01  ||123456|a|welcome"));
  desk.Click("mnuScheduleName");
  EXPECT_FALSE(desk.Main().mnuScheduleName.Checked);
  EXPECT_EQ(desk.Setting("Schedule", "View"), "No");
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kNameColumn), 0);
  EXPECT_THAT(desk.Rows(), ElementsAre("12:01  ||123456||welcome"));
}

TEST(ScheduleViews, TheColumnOfNamesFollowsItsEntryUnderAConflictToo) {
  Desk desk({.Sequences = {{.File = "a.sch"}, {.File = "b.sch"}}});
  desk.Click("mnuScheduleName");
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kNameColumn), 1800);
  desk.Click("mnuClose");
  desk.Click("mnuScheduleName");
  EXPECT_EQ(desk.Main().grdSchedule.ColWidth(kNameColumn), 0);
}

TEST(ScheduleViews, AViewIsRememberedOverARestart) {
  Desk desk(TwoDays());
  desk.Click("mnuAllDays");
  desk.Click("mnuScheduleName");
  desk.Restart();
  EXPECT_EQ(View(desk), "all Yes 2");
  EXPECT_EQ(desk.Cell(1, kNameColumn), "a");
}

TEST(ScheduleViews, AViewWhoseSettingCannotBeWrittenIsShownAllTheSame) {
  Desk desk(TwoDays());
  desk.Pc.Disk.FailWrites("/app");
  desk.Click("mnuAllDays");
  EXPECT_EQ(View(desk), "all No 2");
}

}  // namespace
}  // namespace marlex
