#include "i18n/translate_controls.h"

#include <gtest/gtest.h>

#include "controls/list_box.h"
#include "controls/timer.h"
#include "desk/desk.h"

namespace marlex {
namespace {

/// One control of each kind that keeps an id.
struct Panel : Form {
  Panel() : Form("panel", "270") {}
  Label lbl{*this, "lbl"};
  Frame fr{*this, "fr"};
  Menu mnu{*this, "mnu"};
  TextBox txt{*this, "txt"};
  CommandButton cmd{*this, "cmd"};
  CheckBox chk{*this, "chk"};
  OptionButton opt{*this, "opt"};
  ListBox lst{*this, "lst"};

  void Translate() { TranslateControls(*this, StringTable()); }
};

TEST(TranslateControls, LabelsAndFramesHaveTheIdInTheirTag) {
  Panel panel;
  panel.lbl.Tag = "230";
  panel.fr.Tag = " 240 ";
  panel.Translate();
  EXPECT_EQ(panel.lbl.Caption.Get(), "Play");
  EXPECT_EQ(panel.fr.Caption.Get(), "Skip");
}

TEST(TranslateControls, MenusHaveTheIdInTheirCaption) {
  Panel panel;
  panel.mnu.Caption = "270";
  panel.mnu.Tag = "230";
  panel.Translate();
  EXPECT_EQ(panel.mnu.Caption.Get(), "File");
}

TEST(TranslateControls, TheTagOfATextFieldGoesToItsToolTip) {
  Panel panel;
  panel.txt.Text = "230";
  panel.txt.Caption = "Name";
  panel.txt.Tag = "38";
  panel.Translate();
  EXPECT_EQ(panel.txt.ToolTipText.Get(), "e.g. 1,2,3 or 1-5");
  EXPECT_EQ(panel.txt.Caption.Get(), "Name");
  EXPECT_EQ(panel.txt.Text.Get(), "230");
}

TEST(TranslateControls, AllOtherKindsHaveOneIdForTheCaptionAndOneForTheToolTip) {
  Panel panel;
  for (VisualControl* control :
       {static_cast<VisualControl*>(&panel.cmd), static_cast<VisualControl*>(&panel.chk),
        static_cast<VisualControl*>(&panel.opt), static_cast<VisualControl*>(&panel.lst)}) {
    control->Tag = "250";
    control->ToolTipText = "190";
  }
  panel.Translate();
  for (VisualControl* control :
       {static_cast<VisualControl*>(&panel.cmd), static_cast<VisualControl*>(&panel.chk),
        static_cast<VisualControl*>(&panel.opt), static_cast<VisualControl*>(&panel.lst)}) {
    EXPECT_EQ(control->Caption.Get(), "Stop") << control->Name;
    EXPECT_EQ(control->ToolTipText.Get(), "Double-click to play song") << control->Name;
  }
}

TEST(TranslateControls, OfTheOtherKindsTheNumberThatTheTextBeginsWithCounts) {
  Panel panel;
  panel.cmd.Tag = "250.9 stop";
  panel.cmd.ToolTipText = "190px";
  panel.chk.Caption = "As designed";
  panel.chk.Tag = "No. 250";
  panel.chk.ToolTipText = "0.9";
  panel.opt.Caption = "As designed";
  panel.opt.Tag = "-250";
  panel.Translate();
  EXPECT_EQ(panel.cmd.Caption.Get(), "Stop");
  EXPECT_EQ(panel.cmd.ToolTipText.Get(), "Double-click to play song");
  EXPECT_EQ(panel.chk.Caption.Get(), "As designed");
  EXPECT_EQ(panel.chk.ToolTipText.Get(), "0.9");
  EXPECT_EQ(panel.opt.Caption.Get(), "As designed");
}

TEST(TranslateControls, OfLabelsFramesMenusAndFieldsOnlyAWholeNumberCounts) {
  Panel panel;
  panel.lbl.Caption = panel.fr.Caption = "As designed";
  panel.lbl.Tag = "230px";
  panel.fr.Tag = "No. 230";
  panel.mnu.Caption = "270 files";
  panel.txt.ToolTipText = "As designed";
  panel.txt.Tag = "230px";
  panel.Translate();
  EXPECT_EQ(panel.lbl.Caption.Get(), "As designed");
  EXPECT_EQ(panel.fr.Caption.Get(), "As designed");
  EXPECT_EQ(panel.mnu.Caption.Get(), "270 files");
  EXPECT_EQ(panel.txt.ToolTipText.Get(), "As designed");
}

TEST(TranslateControls, AControlWithoutAnIdKeepsTheTextOfItsDesign) {
  Panel panel;
  panel.lbl.Caption = "1";
  panel.cmd.Caption = "Select";
  panel.mnu.Caption = "Function keys";
  panel.Translate();
  EXPECT_EQ(panel.lbl.Caption.Get(), "1");
  EXPECT_EQ(panel.cmd.Caption.Get(), "Select");
  EXPECT_EQ(panel.mnu.Caption.Get(), "Function keys");
}

TEST(TranslateControls, AnIdThatTheTableLacksIsSkippedAndTheNextControlIsTranslated) {
  Panel panel;
  panel.lbl.Caption = "As designed";
  panel.lbl.Tag = "231";
  panel.fr.Tag = "240";
  panel.Translate();
  EXPECT_EQ(panel.lbl.Caption.Get(), "As designed");
  EXPECT_EQ(panel.fr.Caption.Get(), "Skip");
}

TEST(TranslateControls, TheCaptionOfTheWindowIsLeftAlone) {
  Panel panel;
  panel.Translate();
  EXPECT_EQ(panel.Caption.Get(), "270");
}

TEST(TranslateControls, TheMainWindowsControlsGetTheirTexts) {
  Desk desk;
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"Frame1", "Length"}, {"Frame2", "Position"}, {"Frame3", "Time"},      {"cmdStop", "Stop"},
      {"cmdSkip", "Skip"},  {"cmdPlay", "Play"},    {"cmdCall", "Call"},     {"cmdCall2", "Call"},
      {"lblCall", "Call"},  {"lblMusic", "Music"},  {"frRouting", "Routing"}};
  for (const auto& [control, text] : texts) EXPECT_EQ(desk.Text(control), text) << control;
  for (int zone = 0; zone < 6; ++zone) {
    EXPECT_EQ(desk.Text("lblCurrentZone_" + std::to_string(zone)), std::to_string(zone + 1));
  }
}

TEST(TranslateControls, TheIdsOfTheMainWindowsControlsAreInTheirTags) {
  Desk desk;
  const FrmMain& window = desk.Main();
  std::string tags;
  for (Control* control : window.Controls) {
    const auto* visual = dynamic_cast<VisualControl*>(control);
    if (visual && !visual->Tag.Get().empty())
      tags += control->ObjectName() + " " + visual->Tag.Get() + "\n";
  }
  EXPECT_EQ(tags,
            "frBGMusic 170\nFrame2 220\nFrame3 210\nFrame1 200\ncmdPlay 230\ncmdSkip 240\n"
            "cmdStop 250\nfrSchedule 180\nfrRouting 860\nlblMusic 870\nlblCall 260\ncmdCall 260\n"
            "cmdCall2 260\n");
}

TEST(TranslateControls, TheSplashAndTheAboutWindowSayWhatTheProductIs) {
  Desk desk({}, nullptr, false);
  desk.Sys->TheWindows.frmLogo.Lines.Label5.Caption = "of the design";
  desk.Sys->TheWindows.frmAbout.Lines.Label5.Caption = "of the design";
  desk.Do([&] { desk.Sys->Start(); });
  const auto lines = [&] {
    std::string text;
    for (const char* label : {"Label1", "Label5", "Label6", "Label7", "Label3", "Label4"}) {
      text += desk.Text(label) + "\n";
    }
    return text;
  };
  const std::string product =
      "Tolvo Marlex\nBackground music player\nPC call station\nTime scheduled spot announcer\n"
      "This program shall be used only in combination with Hadrik Tolvo amplifiers.\n"
      "Release 3.1\n";
  EXPECT_EQ(lines(), product);
  const std::string notice = desk.Text("lblNotice");
  EXPECT_NE(notice, "");
  desk.Advance(2500);
  desk.Click("mnuAboutbox");
  EXPECT_EQ(lines(), product);
  EXPECT_EQ(desk.Text("lblNotice"), notice);
}

}  // namespace
}  // namespace marlex
