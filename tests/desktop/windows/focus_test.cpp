#include <gtest/gtest.h>

#include "desktop/windows/contrast.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

bool IsReachedByTab(const QWidget& part) {
  return part.focusPolicy() & Qt::TabFocus && part.isVisible() && part.isEnabled() &&
         !part.objectName().isEmpty() && !part.objectName().startsWith("qt_");
}

QImage Look(QWidget& part, bool focused) {
  focused ? part.setFocus(Qt::TabFocusReason) : part.clearFocus();
  QApplication::processEvents();
  return part.grab().toImage();
}

/// Number of pixels that change visibly when the part gets the focus.
int PointsOfFocus(QWidget& part) {
  const QImage without = Look(part, false);
  const QImage with = Look(part, true);
  int points = 0;
  for (int y = 0; y < without.height(); ++y) {
    for (int x = 0; x < without.width(); ++x)
      points += Contrast(with.pixelColor(x, y), without.pixelColor(x, y)) >= kVisible;
  }
  return points;
}

/// The parts of a window that do not show the focus, each by its name.
std::string Silent(QWidget& window) {
  constexpr int kLeastPoints = 30;  // fewer than a frame round any of them, more than a cursor
  window.activateWindow();
  QApplication::processEvents();
  std::string names;
  for (QWidget* part : window.findChildren<QWidget*>()) {
    if (!IsReachedByTab(*part)) continue;
    if (PointsOfFocus(*part) < kLeastPoints) names += part->objectName().toStdString() + " ";
  }
  return names;
}

TEST(Focus, EveryPartThatTheTabKeyReachesShowsThatItHasIt) {
  PaintedWindows windows;
  Windows& forms = windows.Forms;
  for (Form* form : std::initializer_list<Form*>{&forms.frmMain, &forms.frmSettings,
                                                 &forms.frmPlaylist, &forms.TheWavWindow})
    form->Load();
  Texts().Fill(forms);
  forms.TheWavWindow.AvailWavs.AddItem("gong");
  forms.frmMain.cmdMusicZones[1].Value = true;
  forms.TheWavWindow.cmdZone[1].Value = true;
  for (Form* form : std::initializer_list<Form*>{
           &forms.frmMain, &forms.frmSettings, &forms.frmPlaylist, &forms.TheWavWindow,
           &forms.frmlangSel, &forms.frmDirSel, &forms.frmChimeSelect, &forms.frmAbout}) {
    form->Show();
    windows.Settle();
  }
  for (QWidget* window :
       {&windows.Screen.Main(), &windows.Screen.Settings(), &windows.Screen.Playlist(),
        &windows.Screen.ScheduleEditor(), &windows.Screen.LangSel(), &windows.Screen.DirSel(),
        &windows.Screen.ChimeSelect(), &windows.Screen.About()})
    EXPECT_EQ(Silent(*window), "") << window->objectName().toStdString();
}

}  // namespace
}  // namespace marlex
