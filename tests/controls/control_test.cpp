#include "controls/control.h"

#include <gtest/gtest.h>

#include "controls/widgets.h"

namespace marlex {
namespace {

struct Panel : Form {
  Panel() : Form("panel", "A panel") {}
  Label lblName{*this, "lblName"};
  CheckBox chkMute{*this, "chkMute"};
  ToggleButton cmdZone{*this, "cmdZone"};
  TextBox txtName{*this, "txtName"};
  Slider sldVolume{*this, "sldVolume"};
  ControlArray<OptionButton> optLanguage{*this, "optLanguage", 0, 2};
  ControlArray<OptionButton> optPort{*this, "optPort", 1, 2};
};

TEST(Control, AnElementOfAnArrayIsNamedByItsIndex) {
  Panel panel;
  EXPECT_EQ(panel.lblName.ObjectName(), "lblName");
  EXPECT_EQ(panel.optPort[1].ObjectName(), "optPort_1");
}

TEST(Control, AFormCanBeWalkedInTheOrderOfItsDesign) {
  Panel panel;
  std::string walk;
  for (const Control* control : panel.Controls) {
    walk += std::string(NameOfKind(control->Kind())) + " " + control->ObjectName() + "\n";
  }
  EXPECT_EQ(walk,
            "Form \n"
            "Label lblName\nCheckBox chkMute\nToggleButton cmdZone\nTextBox txtName\n"
            "Slider sldVolume\nOptionButton optLanguage_0\nOptionButton optLanguage_1\n"
            "OptionButton optLanguage_2\nOptionButton optPort_1\nOptionButton optPort_2\n");
}

TEST(Control, AnIndexOutsideItsArrayIsABrokenRule) {
  Panel panel;
  EXPECT_THROW(panel.optPort[0], RuntimeFailure);
  EXPECT_THROW(panel.optPort[3], RuntimeFailure);
  EXPECT_EQ(panel.optPort[2].Index, 2);
}

TEST(Property, AnotherValueFromCodeCallsTheWatcherAndRaisesTheEvent) {
  Panel panel;
  std::string story;
  panel.chkMute.Watcher = [&] { story += "paint "; };
  panel.chkMute.OnClick = [&] { story += "click " + std::to_string(panel.chkMute.Value.Get()); };
  panel.chkMute.Value = 1;
  EXPECT_EQ(story, "paint click 1");
}

TEST(Property, AnEqualValueCallsAndRaisesNothing) {
  Panel panel;
  panel.chkMute.Value = 1;
  panel.txtName.Text = "march";
  int raised = 0;
  panel.chkMute.Watcher = panel.chkMute.OnClick = [&] { ++raised; };
  panel.txtName.Watcher = panel.txtName.OnChange = [&] { ++raised; };
  panel.chkMute.Value = 1;
  panel.txtName.Text = "march";
  EXPECT_EQ(raised, 0);
}

TEST(Property, EachKindOfValueRaisesTheEventOfItsControl) {
  Panel panel;
  std::string story;
  panel.cmdZone.OnChange = [&] { story += "zone "; };
  panel.txtName.OnChange = [&] { story += "text "; };
  panel.sldVolume.OnChange = [&] { story += "volume"; };
  panel.cmdZone.Value = true;
  panel.txtName.Text = "march";
  panel.sldVolume.Value = 7;
  EXPECT_EQ(story, "zone text volume");
}

TEST(Property, AForgottenValueIsSetAgain) {
  Panel panel;
  int raised = 0;
  panel.sldVolume.OnChange = [&] { ++raised; };
  panel.sldVolume.Value = 0;  // where it already is
  EXPECT_EQ(raised, 0);
  panel.sldVolume.Value.Forget();
  EXPECT_TRUE(panel.sldVolume.Value.Forgotten());
  panel.sldVolume.Value = 0;
  EXPECT_EQ(raised, 1);
  EXPECT_FALSE(panel.sldVolume.Value.Forgotten());
  panel.sldVolume.Value = 0;
  EXPECT_EQ(raised, 1);
}

TEST(Property, AnEventMayChangeItsOwnValue) {
  Panel panel;
  std::string story;
  panel.sldVolume.OnChange = [&] {
    story += std::to_string(panel.sldVolume.Value.Get()) + " ";
    if (panel.sldVolume.Value > 100) panel.sldVolume.Value = 100;
  };
  panel.sldVolume.Value = 150;
  EXPECT_EQ(story, "150 100 ");
}

TEST(Slider, AValueOutsideIsHeldAtTheNearerEnd) {
  Panel panel;
  panel.sldVolume.Value = 65536;
  EXPECT_EQ(panel.sldVolume.Value, 65535);
  panel.sldVolume.Value = -1;
  EXPECT_EQ(panel.sldVolume.Value, 0);
  panel.sldVolume.Min = -100;
  panel.sldVolume.Max = 100;
  panel.sldVolume.Value = -101;
  EXPECT_EQ(panel.sldVolume.Value, -100);
}

TEST(Slider, AValueBeyondTheEndAtWhichItIsRaisesNothing) {
  Panel panel;
  panel.sldVolume.Value = 65535;
  int raised = 0;
  panel.sldVolume.OnChange = [&] { ++raised; };
  panel.sldVolume.Value = 70000;
  EXPECT_EQ(raised, 0);
}

std::string On(Panel& panel) {
  std::string on;
  for (int i = 0; i < 3; ++i) on += panel.optLanguage[i].Value() ? '1' : '0';
  for (int i = 1; i < 3; ++i) on += panel.optPort[i].Value() ? '1' : '0';
  return on;
}

TEST(OptionButton, SwitchingOneOnSwitchesTheOthersOfItsArrayOff) {
  Panel panel;
  panel.optLanguage[0].SetValue(true);
  panel.optPort[2].SetValue(true);
  EXPECT_EQ(On(panel), "10001");
  panel.optLanguage[2].SetValue(true);
  EXPECT_EQ(On(panel), "00101");
}

TEST(OptionButton, OnlyTheButtonThatGoesOnRaisesItsEvent) {
  Panel panel;
  std::string story;
  for (int i = 0; i < 3; ++i) {
    panel.optLanguage[i].OnClick = [&story, i] { story += std::to_string(i); };
  }
  panel.optLanguage[0].SetValue(true);
  panel.optLanguage[1].SetValue(true);
  panel.optLanguage[1].SetValue(true);
  EXPECT_EQ(story, "01");
}

TEST(OptionButton, TheOthersAreOffAlreadyWhenTheEventIsRaised) {
  Panel panel;
  panel.optLanguage[0].SetValue(true);
  std::string seen;
  panel.optLanguage[2].OnClick = [&] { seen = On(panel); };
  panel.optLanguage[2].SetValue(true);
  EXPECT_EQ(seen, "00100");
}

}  // namespace
}  // namespace marlex
