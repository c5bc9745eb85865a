#include "desktop/windows/growth.h"

#include <gtest/gtest.h>

#include "desktop/windows/painted_windows.h"
#include "desktop/windows/texts.h"

namespace marlex {
namespace {

constexpr QSize kSmall(1024, 700);
constexpr QSize kLarge(1920, 1080);

struct GrowingWindow : PaintedWindows {
  GrowingWindow() {
    Forms.frmMain.Load();
    Texts().Fill(Forms);
    ShowMain();
    Resize(kSmall);
  }

  void Resize(QSize size) {
    Screen.Main().resize(size);
    Settle();
  }

  double Letters(const char* label) { return Find<QWidget>(label).font().pointSizeF(); }
};

TEST(Growth, NamesOfZonesAreLargeEnoughForTwoMetresFromTheStart) {
  GrowingWindow windows;
  EXPECT_GE(windows.Letters("lblZoneName_0"), 11);
  EXPECT_EQ(windows.Screen.Main().size(), kSmall);
}

TEST(Growth, BandZonesClockAndCallButtonGrowWithTheWindow) {
  GrowingWindow windows;
  const std::vector<const char*> growing = {
      "paneOnAirName", "paneNextTime",   "lblZoneName_0", "cmdCall",   "lblCurrentZone_0",
      "frSchedule",    "lblMP3Position", "frBGMusic",     "frRouting", "Frame2"};
  std::vector<double> before;
  for (const char* part : growing) before.push_back(windows.Letters(part));
  const int table = windows.Find<QWidget>("grdSchedule").fontMetrics().height();
  const int list = windows.Find<QWidget>("lstPlaylist").fontMetrics().height();
  std::vector<const char*> parts = {"cmdMusicZones_0", "lblCurrentZone_0", "cmdCall", "cmdPlay"};
  std::vector<int> heights;
  for (const char* part : parts) heights.push_back(windows.Find<QWidget>(part).height());
  windows.Resize(kLarge);
  for (std::size_t part = 0; part < growing.size(); ++part)
    EXPECT_NEAR(windows.Letters(growing[part]), 1.5 * before[part], 0.1) << growing[part];
  for (std::size_t part = 0; part < parts.size(); ++part)
    EXPECT_GE(windows.Find<QWidget>(parts[part]).height(), 1.45 * heights[part]) << parts[part];
  EXPECT_EQ(windows.Find<QWidget>("grdSchedule").fontMetrics().height(), table);
  EXPECT_EQ(windows.Find<QWidget>("lstPlaylist").fontMetrics().height(), list);
}

TEST(Growth, AGrownWindowShrinksAgainAtOnce) {
  GrowingWindow windows;
  const double letters = windows.Letters("paneOnAirName");
  const int height = windows.Find<QWidget>("cmdMusicZones_0").height();
  windows.Resize(kLarge);
  windows.Resize(kSmall);
  EXPECT_EQ(windows.Screen.Main().size(), kSmall);
  EXPECT_EQ(windows.Letters("paneOnAirName"), letters);
  EXPECT_EQ(windows.Find<QWidget>("cmdMusicZones_0").height(), height);
}

}  // namespace
}  // namespace marlex
