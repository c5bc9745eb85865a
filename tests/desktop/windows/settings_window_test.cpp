#include <gtest/gtest.h>

#include "desktop/windows/mouse.h"
#include "desktop/windows/painted_windows.h"
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
struct SettingsPlace : PaintedWindows {
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
  SettingsPlace windows;
  windows.Settings.slMasterVolume.Value = 30000;
  windows.Settle();
  auto& slider = windows.Part<QSlider>("slMasterVolume");
  QTest::keyClick(&slider, Qt::Key_Up);
  windows.Settle();
  EXPECT_LT(windows.Settings.slMasterVolume.Value, 30000);
  QTest::keyClick(&slider, Qt::Key_Home);
  windows.Settle();
  const QPixmap top = slider.grab();
  EXPECT_EQ(windows.Settings.slMasterVolume.Value, 0);
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
  SettingsPlace windows;
  std::string steps;
  Slider& slider = windows.Settings.slMusicVolume;
  slider.OnChange = [&] { steps += std::to_string(slider.Value) + " "; };
  for (const int position : {100, 200, 300}) {
    windows.Part<QSlider>("slMusicVolume").setValue(position);
  }
  windows.Settle();
  windows.Part<QSlider>("slMusicVolume").setValue(400);
  windows.Settle();
  EXPECT_EQ(steps, "300 400 ");
}

TEST(SettingsWindow, AKnobThatIsHeldStaysUnderThePointer) {
  SettingsPlace windows;
  auto& widget = windows.Part<QSlider>("slMusicVolume");
  widget.setSliderDown(true);
  widget.setValue(500);
  windows.Settle();
  windows.Settings.slMusicVolume.Value = 900;
  windows.Settle();
  EXPECT_EQ(widget.value(), 500);
  widget.setSliderDown(false);
  windows.Settle();
  EXPECT_EQ(widget.value(), 900);
}

TEST(SettingsWindow, EachGroupOfChoicesKeepsItsOwn) {
  SettingsPlace windows;
  for (const char* name : {"optTolvo_0", "optFast", "optCom_1", "optPriority_1", "optSlow"})
    windows.Click(name);
  EXPECT_TRUE(windows.Settings.optTolvo[0].Value());
  EXPECT_FALSE(windows.Settings.optFast.Value());
  EXPECT_TRUE(windows.Settings.optSlow.Value());
  EXPECT_TRUE(windows.Settings.optCom[1].Value());
  EXPECT_TRUE(windows.Settings.optPriority[1].Value());
  EXPECT_TRUE(windows.Part<QRadioButton>("optTolvo_0").isChecked());
  EXPECT_FALSE(windows.Part<QRadioButton>("optFast").isChecked());
  EXPECT_TRUE(windows.Part<QRadioButton>("optSlow").isChecked());
}

TEST(SettingsWindow, TheChimesAndTheNoteAboutTheMicrophoneShareOnePlace) {
  SettingsPlace windows;
  windows.Settings.frSound.Visible = false;
  windows.Settle();
  const QPoint place = windows.Part<QWidget>("frChimes").pos();
  windows.Settings.frChimes.Visible = false;
  windows.Settings.frSound.Visible = true;
  windows.Settle();
  EXPECT_NEAR(windows.Part<QWidget>("frSound").x(), place.x(), 10);
  EXPECT_NEAR(windows.Part<QWidget>("frSound").y(), place.y(), 30);
}

TEST(SettingsWindow, ItShrinksByTheFramesOfTheRouterAndGrowsBack) {
  SettingsPlace windows;
  const QSize whole = windows.Screen.Settings().size();
  const auto show = [&](bool shown) {
    for (Frame* frame :
         {&windows.Settings.frNames, &windows.Settings.frPort, &windows.Settings.frPriority}) {
      frame->Visible = shown;
    }
    windows.Settle();
  };
  show(false);
  EXPECT_LT(windows.Screen.Settings().height(), whole.height() - 100);
  EXPECT_EQ(windows.Screen.Settings().width(), whole.width());
  show(true);
  EXPECT_EQ(windows.Screen.Settings().size(), whole);
}

TEST(SettingsWindow, ALineOfADisabledFrameCannotBeMoved) {
  SettingsPlace windows;
  windows.Settings.frMicroVolume.Enabled = false;
  windows.Settle();
  EXPECT_FALSE(windows.Part<QSlider>("slMicroVolume").isEnabled());
  EXPECT_TRUE(windows.Part<QSlider>("slMusicVolume").isEnabled());
}

TEST(SettingsWindow, EnterIsItsOkAndEscapeItsCancel) {
  SettingsPlace windows;
  std::string clicks;
  windows.Settings.cmdOK.OnClick = [&] { clicks += "ok "; };
  windows.Settings.cmdCancel.OnClick = [&] { clicks += "cancel "; };
  QTest::keyClick(&windows.Part<QLineEdit>("txtZoneName_0"), Qt::Key_Return);
  windows.Settle();
  EXPECT_EQ(clicks, "ok ");
  QTest::keyClick(&windows.Part<QLineEdit>("txtZoneName_0"), Qt::Key_Escape);
  windows.Settle();
  EXPECT_EQ(clicks, "ok cancel ");
  EXPECT_TRUE(windows.Screen.Settings().isVisible());
}

TEST(SettingsWindow, WhatIsTypedReachesTheZonesName) {
  SettingsPlace windows;
  auto& name = windows.Part<QLineEdit>("txtZoneName_4");
  EXPECT_EQ(name.text(), "Zone 5");
  name.selectAll();
  QTest::keyClicks(&name, "Gate");
  windows.Settle();
  EXPECT_EQ(windows.Settings.txtZoneName[4].Text.Get(), "Gate");
}

TEST(SettingsWindow, TheTabGoesFromTheDirectoriesToTheButtons) {
  SettingsPlace windows;
  const QStringList order = TabOrder(windows.Part<QWidget>("cmdBgBrowse"));
  EXPECT_EQ(order.first(), "cmdBgBrowse");
  EXPECT_LT(order.indexOf("cmdMsgBrowse"), order.indexOf("slMasterVolume"));
  EXPECT_LT(order.indexOf("slMicroVolume"), order.indexOf("optTolvo_0"));
  EXPECT_LT(order.indexOf("cmdPostSelect"), order.indexOf("txtZoneName_0"));
  EXPECT_LT(order.indexOf("optPriority_1"), order.indexOf("cmdOK"));
  EXPECT_LT(order.indexOf("cmdOK"), order.indexOf("cmdCancel"));
}

TEST(SettingsWindow, AnotherShowingBringsItBeforeTheMainWindow) {
  SettingsPlace windows;
  windows.ShowMain();
  windows.Screen.Main().activateWindow();
  windows.Settle();
  ASSERT_EQ(QApplication::activeWindow(), &windows.Screen.Main());
  windows.Settings.Show();
  windows.Settle();
  EXPECT_EQ(QApplication::activeWindow(), &windows.Screen.Settings());
}

/// The directory picker on a small disk.
struct PickerPlace : PaintedWindows {
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
  PickerPlace windows;
  QStringList shown;
  for (int row = 0; row < windows.Tree().model()->rowCount(); ++row)
    shown << windows.Tree().model()->index(row, 0).data().toString();
  EXPECT_EQ(shown, (QStringList{"/", "    home", "        operator", "            Messages",
                                "            Music"}));
  EXPECT_EQ(windows.Tree().currentIndex().row(), 2);
}

TEST(PickerWindow, AClickSelectsADirectoryAndADoubleClickOpensIt) {
  PickerPlace windows;
  int clicks = 0;
  int changes = 0;
  windows.Picker.Dir1.OnClick = [&] { ++clicks; };
  windows.Picker.Dir1.OnChange = [&] { ++changes; };
  Mouse(*windows.Tree().viewport()).Click(windows.At(4));
  windows.Settle();
  EXPECT_EQ(windows.Picker.Dir1.Text(), "/home/operator/Music");
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(changes, 0);
  Mouse(*windows.Tree().viewport()).DoubleClick(windows.At(4));
  windows.Settle();
  EXPECT_EQ(windows.Picker.Dir1.Path(), "/home/operator/Music");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(windows.Tree().model()->rowCount(), 7);
}

TEST(PickerWindow, TheArrowsOpenADirectoryAndTheOneAbove) {
  PickerPlace windows;
  QTest::keyClick(&windows.Tree(), Qt::Key_Down);
  windows.Settle();
  QTest::keyClick(&windows.Tree(), Qt::Key_Right);
  windows.Settle();
  EXPECT_EQ(windows.Picker.Dir1.Path(), "/home/operator/Messages");
  QTest::keyClick(&windows.Tree(), Qt::Key_Left);
  windows.Settle();
  EXPECT_EQ(windows.Picker.Dir1.Path(), "/home/operator");
}

TEST(PickerWindow, EnterInTheTreeIsTheOkAndOpensNothing) {
  PickerPlace windows;
  int accepted = 0;
  windows.Picker.cmdOK.OnClick = [&] { ++accepted; };
  QTest::keyClick(&windows.Tree(), Qt::Key_Down);
  QTest::keyClick(&windows.Tree(), Qt::Key_Return);
  windows.Settle();
  EXPECT_EQ(accepted, 1);
  EXPECT_EQ(windows.Picker.Dir1.Path(), "/home/operator");
}

TEST(PickerWindow, TheBoxOfDrivesShowsThemAndTakesAChoice) {
  PickerPlace windows;
  int changes = 0;
  windows.Picker.Drive1.OnClick = [&] { ++changes; };
  auto& box = In<QComboBox>(windows.Screen.DirSel(), "Drive1");
  EXPECT_EQ(box.count(), 3);
  EXPECT_EQ(box.currentText(), "/home/operator");
  QTest::keyClick(&box, Qt::Key_Down);
  windows.Settle();
  EXPECT_EQ(windows.Picker.Drive1.Drive(), "/");
  EXPECT_EQ(changes, 1);
  windows.Picker.Drive1.ShowDriveOf("/media/stick/x");
  windows.Settle();
  EXPECT_EQ(box.currentText(), "/media/stick");
  EXPECT_EQ(changes, 1);
}

TEST(PickerWindow, APickerOpensOverTheSettingsAndLeavesTheMainWindowFree) {
  PickerPlace windows;
  windows.ShowMain();
  EXPECT_EQ(windows.Screen.DirSel().windowModality(), Qt::WindowModal);
  EXPECT_EQ(windows.Screen.DirSel().windowHandle()->transientParent(),
            windows.Screen.Settings().windowHandle());
  int clicks = 0;
  windows.Forms.frmMain.cmdPlay.OnClick = [&] { ++clicks; };
  windows.Forms.frmSettings.cmdCancel.OnClick = [&] { clicks += 10; };
  const auto click = [&](QWidget& window, const char* name) {
    auto& button = In<QPushButton>(window, name);
    const QPoint at = button.mapTo(&window, button.rect().center());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, at);
    windows.Settle();
  };
  click(windows.Screen.Settings(), "cmdCancel");
  EXPECT_EQ(clicks, 0);
  click(windows.Screen.Main(), "cmdPlay");
  EXPECT_EQ(clicks, 1);
}

TEST(PickerWindow, EnterInTheListOfChimesIsTheOkOnceAChimeIsChosen) {
  PaintedWindows windows;
  FillMedia(windows.Disk);
  FrmChimeSelect& picker = windows.Forms.frmChimeSelect;
  picker.Load();
  picker.lstChimeList.SetPath("/home/operator/Messages");
  picker.cmdOK.Enabled = false;
  picker.Show();
  windows.Settle();
  int accepted = 0;
  picker.cmdOK.OnClick = [&] { ++accepted; };
  auto& list = In<QListView>(windows.Screen.ChimeSelect(), "lstChimeList");
  QTest::keyClick(&list, Qt::Key_Return);
  windows.Settle();
  EXPECT_EQ(accepted, 0);
  picker.cmdOK.Enabled = true;
  windows.Settle();
  QTest::keyClick(&list, Qt::Key_Return);
  windows.Settle();
  EXPECT_EQ(accepted, 1);
}

}  // namespace
}  // namespace marlex
