#include <gtest/gtest.h>

#include "desktop/windows/desk.h"
#include "desktop/windows/mouse.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

template <class T>
T& In(QWidget& window, const char* name) {
  auto* found = window.findChild<T*>(name);
  if (!found) throw RuntimeFailure(std::string("No widget ") + name);
  return *found;
}

/// The settings dialog, open.
struct SettingsPlace : Desk {
  SettingsPlace() {
    Settings.Show();
    Settle();
  }

  template <class T>
  T& Part(const char* name) {
    return In<T>(Screen.Settings(), name);
  }
  void Click(const char* name) {
    Mouse(Part<QAbstractButton>(name)).Click();
    Settle();
  }

  FrmSettings& Settings = Forms.frmSettings;
};

TEST(SettingsWindow, TheTopOfAVolumeSliderIsItsLoudestEnd) {
  SettingsPlace desk;
  desk.Settings.slMasterVolume.Value = 30000;
  desk.Settle();
  auto& slider = desk.Part<QSlider>("slMasterVolume");
  QTest::keyClick(&slider, Qt::Key_Up);
  desk.Settle();
  EXPECT_LT(desk.Settings.slMasterVolume.Value, 30000);
  QTest::keyClick(&slider, Qt::Key_Home);
  desk.Settle();
  const QPixmap top = slider.grab();
  EXPECT_EQ(desk.Settings.slMasterVolume.Value, 0);
  QStyleOptionSlider option;
  option.initFrom(&slider);
  option.orientation = Qt::Vertical;
  option.maximum = slider.maximum();
  option.upsideDown = !slider.invertedAppearance();
  option.sliderPosition = slider.sliderPosition();
  const QRect knob =
      slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider);
  EXPECT_LT(knob.center().y(), slider.height() / 4);
}

TEST(SettingsWindow, OfTheStepsThatASliderMakesAtOnceOnlyTheLastCounts) {
  SettingsPlace desk;
  std::string steps;
  Slider& slider = desk.Settings.slMusicVolume;
  slider.OnChange = [&] { steps += std::to_string(slider.Value) + " "; };
  for (const int position : {100, 200, 300}) {
    desk.Part<QSlider>("slMusicVolume").setValue(position);
  }
  desk.Settle();
  desk.Part<QSlider>("slMusicVolume").setValue(400);
  desk.Settle();
  EXPECT_EQ(steps, "300 400 ");
}

TEST(SettingsWindow, AKnobThatIsHeldStaysUnderThePointer) {
  SettingsPlace desk;
  auto& widget = desk.Part<QSlider>("slMusicVolume");
  widget.setSliderDown(true);
  widget.setValue(500);
  desk.Settle();
  desk.Settings.slMusicVolume.Value = 900;
  desk.Settle();
  EXPECT_EQ(widget.value(), 500);
  widget.setSliderDown(false);
  desk.Settle();
  EXPECT_EQ(widget.value(), 900);
}

TEST(SettingsWindow, EachGroupOfChoicesKeepsItsOwn) {
  SettingsPlace desk;
  for (const char* name : {"optTolvo_0", "optFast", "optCom_1", "optPriority_1", "optSlow"})
    desk.Click(name);
  EXPECT_TRUE(desk.Settings.optTolvo[0].Value());
  EXPECT_FALSE(desk.Settings.optFast.Value());
  EXPECT_TRUE(desk.Settings.optSlow.Value());
  EXPECT_TRUE(desk.Settings.optCom[1].Value());
  EXPECT_TRUE(desk.Settings.optPriority[1].Value());
  EXPECT_TRUE(desk.Part<QRadioButton>("optTolvo_0").isChecked());
  EXPECT_FALSE(desk.Part<QRadioButton>("optFast").isChecked());
  EXPECT_TRUE(desk.Part<QRadioButton>("optSlow").isChecked());
}

TEST(SettingsWindow, TheChimesAndTheWordAboutTheMicrophoneStandOnOnePlace) {
  SettingsPlace desk;
  desk.Settings.frSound.Visible = false;
  desk.Settle();
  const QPoint place = desk.Part<QWidget>("frChimes").pos();
  desk.Settings.frChimes.Visible = false;
  desk.Settings.frSound.Visible = true;
  desk.Settle();
  EXPECT_NEAR(desk.Part<QWidget>("frSound").x(), place.x(), 10);
  EXPECT_NEAR(desk.Part<QWidget>("frSound").y(), place.y(), 30);
}

TEST(SettingsWindow, ItShrinksByTheFramesOfTheRouterAndGrowsBack) {
  SettingsPlace desk;
  const QSize whole = desk.Screen.Settings().size();
  const auto show = [&](bool shown) {
    for (Frame* frame :
         {&desk.Settings.frNames, &desk.Settings.frPort, &desk.Settings.frPriority}) {
      frame->Visible = shown;
    }
    desk.Settle();
  };
  show(false);
  EXPECT_LT(desk.Screen.Settings().height(), whole.height() - 100);
  EXPECT_EQ(desk.Screen.Settings().width(), whole.width());
  show(true);
  EXPECT_EQ(desk.Screen.Settings().size(), whole);
}

TEST(SettingsWindow, ALineOfADisabledFrameCannotBeMoved) {
  SettingsPlace desk;
  desk.Settings.frMicroVolume.Enabled = false;
  desk.Settle();
  EXPECT_FALSE(desk.Part<QSlider>("slMicroVolume").isEnabled());
  EXPECT_TRUE(desk.Part<QSlider>("slMusicVolume").isEnabled());
}

TEST(SettingsWindow, EnterIsItsOkAndEscapeItsCancel) {
  SettingsPlace desk;
  std::string keys;
  desk.Settings.cmdOK.OnClick = [&] { keys += "ok "; };
  desk.Settings.cmdCancel.OnClick = [&] { keys += "cancel "; };
  QTest::keyClick(&desk.Part<QLineEdit>("txtZoneName_0"), Qt::Key_Return);
  desk.Settle();
  EXPECT_EQ(keys, "ok ");
  QTest::keyClick(&desk.Part<QLineEdit>("txtZoneName_0"), Qt::Key_Escape);
  desk.Settle();
  EXPECT_EQ(keys, "ok cancel ");
  EXPECT_TRUE(desk.Screen.Settings().isVisible());
}

TEST(SettingsWindow, WhatIsTypedReachesTheZonesName) {
  SettingsPlace desk;
  auto& name = desk.Part<QLineEdit>("txtZoneName_4");
  EXPECT_EQ(name.text(), "Zone 5");
  name.selectAll();
  QTest::keyClicks(&name, "Gate");
  desk.Settle();
  EXPECT_EQ(desk.Settings.txtZoneName[4].Text.Get(), "Gate");
}

TEST(SettingsWindow, TheTabGoesFromTheDirectoriesToTheKeys) {
  SettingsPlace desk;
  const QStringList order = TabOrder(desk.Part<QWidget>("cmdBgBrowse"));
  EXPECT_EQ(order.first(), "cmdBgBrowse");
  EXPECT_LT(order.indexOf("cmdMsgBrowse"), order.indexOf("slMasterVolume"));
  EXPECT_LT(order.indexOf("slMicroVolume"), order.indexOf("optTolvo_0"));
  EXPECT_LT(order.indexOf("cmdPostSelect"), order.indexOf("txtZoneName_0"));
  EXPECT_LT(order.indexOf("optPriority_1"), order.indexOf("cmdOK"));
  EXPECT_LT(order.indexOf("cmdOK"), order.indexOf("cmdCancel"));
}

TEST(SettingsWindow, AnotherShowingBringsItBeforeTheMainWindow) {
  SettingsPlace desk;
  desk.ShowMain();
  desk.Screen.Main().activateWindow();
  desk.Settle();
  ASSERT_EQ(QApplication::activeWindow(), &desk.Screen.Main());
  desk.Settings.Show();
  desk.Settle();
  EXPECT_EQ(QApplication::activeWindow(), &desk.Screen.Settings());
}

/// The directory picker on a small disk.
struct PickerPlace : Desk {
  PickerPlace() {
    FillMedia(Disk);
    Disk.AddDrive("/media/stick");
    Forms.frmSettings.Show();
    Picker.Drive1.Refresh();
    Picker.Dir1.BeginAt("/home/operator");
    Picker.Show();
    Settle();
  }

  QListView& Tree() { return In<QListView>(Screen.DirSel(), "Dir1"); }
  QPoint At(int row) { return Tree().visualRect(Tree().model()->index(row, 0)).center(); }

  FrmDirSel& Picker = Forms.frmDirSel;
};

TEST(PickerWindow, TheTreeShowsTheWayToTheOpenDirectoryIndented) {
  PickerPlace desk;
  QStringList shown;
  for (int row = 0; row < desk.Tree().model()->rowCount(); ++row)
    shown << desk.Tree().model()->index(row, 0).data().toString();
  EXPECT_EQ(shown, (QStringList{"/", "    home", "        operator", "            Messages",
                                "            Music"}));
  EXPECT_EQ(desk.Tree().currentIndex().row(), 2);
}

TEST(PickerWindow, AClickSelectsADirectoryAndADoubleClickOpensIt) {
  PickerPlace desk;
  int clicks = 0;
  int changes = 0;
  desk.Picker.Dir1.OnClick = [&] { ++clicks; };
  desk.Picker.Dir1.OnChange = [&] { ++changes; };
  Mouse(*desk.Tree().viewport()).Click(desk.At(4));
  desk.Settle();
  EXPECT_EQ(desk.Picker.Dir1.Text(), "/home/operator/Music");
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(changes, 0);
  Mouse(*desk.Tree().viewport()).DoubleClick(desk.At(4));
  desk.Settle();
  EXPECT_EQ(desk.Picker.Dir1.Path(), "/home/operator/Music");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(desk.Tree().model()->rowCount(), 7);
}

TEST(PickerWindow, TheArrowsOpenADirectoryAndTheOneAbove) {
  PickerPlace desk;
  QTest::keyClick(&desk.Tree(), Qt::Key_Down);
  desk.Settle();
  QTest::keyClick(&desk.Tree(), Qt::Key_Right);
  desk.Settle();
  EXPECT_EQ(desk.Picker.Dir1.Path(), "/home/operator/Messages");
  QTest::keyClick(&desk.Tree(), Qt::Key_Left);
  desk.Settle();
  EXPECT_EQ(desk.Picker.Dir1.Path(), "/home/operator");
}

TEST(PickerWindow, EnterInTheTreeIsTheOkAndOpensNothing) {
  PickerPlace desk;
  int accepted = 0;
  desk.Picker.cmdOK.OnClick = [&] { ++accepted; };
  QTest::keyClick(&desk.Tree(), Qt::Key_Down);
  QTest::keyClick(&desk.Tree(), Qt::Key_Return);
  desk.Settle();
  EXPECT_EQ(accepted, 1);
  EXPECT_EQ(desk.Picker.Dir1.Path(), "/home/operator");
}

TEST(PickerWindow, TheBoxOfDrivesShowsThemAndTakesAChoice) {
  PickerPlace desk;
  int changes = 0;
  desk.Picker.Drive1.OnClick = [&] { ++changes; };
  auto& box = In<QComboBox>(desk.Screen.DirSel(), "Drive1");
  EXPECT_EQ(box.count(), 3);
  EXPECT_EQ(box.currentText(), "/home/operator");
  QTest::keyClick(&box, Qt::Key_Down);
  desk.Settle();
  EXPECT_EQ(desk.Picker.Drive1.Drive(), "/");
  EXPECT_EQ(changes, 1);
  desk.Picker.Drive1.ShowDriveOf("/media/stick/x");
  desk.Settle();
  EXPECT_EQ(box.currentText(), "/media/stick");
  EXPECT_EQ(changes, 1);
}

TEST(PickerWindow, APickerStandsBeforeTheSettingsAndLeavesTheMainWindowFree) {
  PickerPlace desk;
  desk.ShowMain();
  EXPECT_EQ(desk.Screen.DirSel().windowModality(), Qt::WindowModal);
  EXPECT_EQ(desk.Screen.DirSel().windowHandle()->transientParent(),
            desk.Screen.Settings().windowHandle());
  int clicks = 0;
  desk.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  desk.Forms.frmSettings.cmdCancel.OnClick = [&] { clicks += 10; };
  const auto click = [&](QWidget& window, const char* name) {
    auto& key = In<QPushButton>(window, name);
    const QPoint at = key.mapTo(&window, key.rect().center());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, at);
    desk.Settle();
  };
  click(desk.Screen.Settings(), "cmdCancel");
  EXPECT_EQ(clicks, 0);
  click(desk.Screen.Main(), "cmdPlay");
  EXPECT_EQ(clicks, 1);
}

TEST(PickerWindow, EnterInTheListOfChimesIsTheOkOnceAChimeIsChosen) {
  Desk desk;
  FillMedia(desk.Disk);
  FrmChimeSelect& picker = desk.Forms.frmChimeSelect;
  picker.Load();
  picker.lstChimeList.SetPath("/home/operator/Messages");
  picker.cmdOK.Enabled = false;
  picker.Show();
  desk.Settle();
  int accepted = 0;
  picker.cmdOK.OnClick = [&] { ++accepted; };
  auto& list = In<QListView>(desk.Screen.ChimeSelect(), "lstChimeList");
  QTest::keyClick(&list, Qt::Key_Return);
  desk.Settle();
  EXPECT_EQ(accepted, 0);
  picker.cmdOK.Enabled = true;
  desk.Settle();
  QTest::keyClick(&list, Qt::Key_Return);
  desk.Settle();
  EXPECT_EQ(accepted, 1);
}

}  // namespace
}  // namespace marlex
