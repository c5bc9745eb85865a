#include "controls/form.h"

#include <gtest/gtest.h>

#include "controls/grid.h"
#include "controls/list_box.h"
#include "controls/timer.h"
#include "simulation/virtual_loop.h"

namespace marlex {
namespace {

struct Panel : Form {
  explicit Panel(EventLoop& loop)
      : Form("panel", "A panel"), tmrBlink(*this, "tmrBlink", loop, 100, true) {
    lblName.Caption = "Name";
    Height = 300;
  }
  Label lblName{*this, "lblName"};
  CheckBox chkMute{*this, "chkMute"};
  ListBox lstSongs{*this, "lstSongs"};
  Grid grdRows{*this, "grdRows"};
  Timer tmrBlink;
};

TEST(Form, ShowingLoadsItOnceAndMakesItVisible) {
  VirtualLoop loop;
  Panel panel(loop);
  std::string story;
  panel.OnLoad = [&] { story += panel.Visible ? "late " : "load "; };
  panel.Show();
  panel.Show();
  EXPECT_EQ(story, "load ");
  EXPECT_TRUE(panel.Loaded());
  EXPECT_TRUE(panel.Visible);
}

TEST(Form, LoadingAloneShowsNothing) {
  VirtualLoop loop;
  Panel panel(loop);
  panel.Load();
  EXPECT_TRUE(panel.Loaded());
  EXPECT_FALSE(panel.Visible);
}

TEST(Form, AFormThatItsOwnLoadUnloadsStaysHidden) {
  VirtualLoop loop;
  Panel panel(loop);
  panel.OnLoad = [&] { panel.Unload(); };
  panel.Show();
  EXPECT_FALSE(panel.Loaded());
  EXPECT_FALSE(panel.Visible);
}

TEST(Form, ADesignValueStaysKnownWhenTheValueChanges) {
  VirtualLoop loop;
  Panel panel(loop);
  EXPECT_EQ(panel.Height.DesignValue(), 300);
  panel.lblName.Height = 20;
  panel.Load();
  panel.lblName.Height = 40;
  EXPECT_EQ(panel.lblName.Height, 40);
  EXPECT_EQ(panel.lblName.Height.DesignValue(), 20);
  panel.Unload();
  panel.lblName.Height = 50;
  panel.Load();
  EXPECT_EQ(panel.lblName.Height.DesignValue(), 20);
}

TEST(Form, UnloadingBringsTheDesignBack) {
  VirtualLoop loop;
  Panel panel(loop);
  panel.Show();
  panel.Caption = "Another";
  panel.Height = 500;
  panel.BackColor = kRed;
  panel.lblName.Caption = "Changed";
  panel.lblName.Visible = false;
  panel.chkMute.Value = 1;
  panel.lstSongs.AddItem("march");
  panel.lstSongs.SetListIndex(0);
  panel.grdRows.SetRows(3);
  panel.grdRows.SetTextMatrix(0, 1, "Days");
  panel.grdRows.SetColWidth(1, 800);
  panel.grdRows.SetRow(2);
  panel.grdRows.SetCol(1);
  panel.tmrBlink.Interval = 7;
  panel.Unload();
  EXPECT_EQ(panel.Caption.Get(), "A panel");
  EXPECT_EQ(panel.Height, 300);
  EXPECT_EQ(panel.BackColor, kButtonFace);
  EXPECT_FALSE(panel.Visible);
  EXPECT_EQ(panel.lblName.Caption.Get(), "Name");
  EXPECT_TRUE(panel.lblName.Visible);
  EXPECT_EQ(panel.chkMute.Value, 0);
  EXPECT_EQ(panel.lstSongs.ListCount(), 0);
  EXPECT_EQ(panel.lstSongs.ListIndex(), ListBox::kNoSelection);
  EXPECT_EQ(panel.grdRows.Rows(), 1);
  EXPECT_EQ(panel.grdRows.TextMatrix(0, 1), "");
  EXPECT_EQ(panel.grdRows.ColWidth(1), 0);
  EXPECT_EQ(panel.grdRows.Row(), 0);
  EXPECT_EQ(panel.grdRows.Col(), 0);
  EXPECT_EQ(panel.tmrBlink.Interval, 100);
}

TEST(Form, UnloadingRaisesNoEventOfAControlButCallsItsWatcher) {
  VirtualLoop loop;
  Panel panel(loop);
  panel.Load();
  panel.chkMute.Value = 1;
  int events = 0;
  int paints = 0;
  panel.chkMute.OnClick = [&] { ++events; };
  panel.chkMute.Watcher = [&] { ++paints; };
  panel.Unload();
  EXPECT_EQ(events, 0);
  EXPECT_EQ(paints, 1);
}

TEST(Form, ALoadedFormKeepsWhatCodeHasChangedUntilItIsUnloaded) {
  VirtualLoop loop;
  Panel panel(loop);
  panel.Load();
  panel.lblName.Caption = "Changed";
  panel.Show();
  EXPECT_EQ(panel.lblName.Caption.Get(), "Changed");
  panel.Unload();
  panel.Show();
  EXPECT_EQ(panel.lblName.Caption.Get(), "Name");
}

TEST(Form, AnUnloadThatIsRefusedChangesNothing) {
  VirtualLoop loop;
  Panel panel(loop);
  panel.Show();
  panel.lblName.Caption = "Changed";
  panel.OnUnload = [] { return false; };
  panel.Unload();
  EXPECT_TRUE(panel.Loaded());
  EXPECT_TRUE(panel.Visible);
  EXPECT_EQ(panel.lblName.Caption.Get(), "Changed");
}

TEST(Form, AFormThatIsNotLoadedIsNotUnloaded) {
  VirtualLoop loop;
  Panel panel(loop);
  int asked = 0;
  panel.OnUnload = [&] { return ++asked > 0; };
  panel.Unload();
  EXPECT_EQ(asked, 0);
}

TEST(Form, ClosingItUnloadsItUnlessItDecidesOtherwise) {
  VirtualLoop loop;
  Panel panel(loop);
  panel.Show();
  panel.Close();
  EXPECT_FALSE(panel.Loaded());
  panel.Show();
  panel.OnClose = [] {};
  panel.Close();
  EXPECT_TRUE(panel.Visible);
}

TEST(Form, ATimerRunsOnlyWhileItsFormIsLoaded) {
  VirtualLoop loop;
  Panel panel(loop);
  int ticks = 0;
  panel.tmrBlink.OnTimer = [&] { ++ticks; };
  loop.RunFor(300);
  EXPECT_EQ(ticks, 0);
  panel.Load();
  loop.RunFor(300);
  EXPECT_EQ(ticks, 3);
  panel.Unload();
  loop.RunFor(300);
  EXPECT_EQ(ticks, 3);
}

}  // namespace
}  // namespace marlex
