#include "desktop/sound/engine_wave_player.h"

#include <gtest/gtest.h>

#include "desktop/sound/offline_desk.h"

namespace marlex {
namespace {

TEST(EngineWavePlayer, PlaysAFileToItsEndAndReportsItOnce) {
  OfflineDesk desk;
  desk.Wave.FileName = desk.Files.Wav("chime.wav", 0.25);
  EXPECT_EQ(desk.Wave.Mode(), kWaveNotOpen);
  desk.Wave.Command("Open");
  EXPECT_EQ(desk.Wave.Mode(), kWaveStopped);
  EXPECT_EQ(desk.Wave.Length(), 250);
  desk.Wave.Command("Play");
  EXPECT_EQ(desk.Wave.Mode(), kWavePlaying);
  const std::vector<float> sound = desk.RenderUntil("525");
  EXPECT_NEAR(double(sound.size()) / 2, 11025, OfflineDesk::kBlock);
  EXPECT_NEAR(Loudest(sound), 0.5, 0.001);
  EXPECT_EQ(Loudest(sound, 11025), 0);
  desk.Render(4410);
  EXPECT_EQ(desk.Journal, "done 525 ");
  EXPECT_EQ(desk.Wave.Mode(), kWaveStopped);
  EXPECT_EQ(desk.Wave.Length(), 250);
}

TEST(EngineWavePlayer, FirstSampleIsNotFadedIn) {
  OfflineDesk desk;
  WavHeader header;
  header.DataSize = 4000;
  std::string loud;
  for (int i = 0; i < 2000; ++i) loud += "\xFF\x3F";  // 0.5
  desk.Wave.FileName = desk.Files.Write("step.wav", WavBytes(header, loud));
  desk.Wave.Command("Open");
  desk.Wave.Command("Play");
  EXPECT_NEAR(desk.Render(441)[0], 0.5, 0.001);
}

TEST(EngineWavePlayer, AFileThatIsClosedWhileItPlaysIsReportedOnceAndFallsSilent) {
  OfflineDesk desk;
  desk.Wave.FileName = desk.Files.Wav("long.wav", 5);
  desk.Wave.Command("Open");
  desk.Wave.Command("Play");
  desk.Render(4410);
  desk.Wave.Command("Close");
  EXPECT_EQ(desk.Journal, "");
  EXPECT_EQ(desk.Wave.Mode(), kWaveNotOpen);
  const std::vector<float> sound = desk.Render(4410);
  EXPECT_EQ(Loudest(sound, 441), 0);
  desk.Wave.Command("Close");
  desk.Render(441);
  EXPECT_EQ(desk.Journal, "525 ");
  EXPECT_EQ(desk.Wave.Length(), 0);
}

TEST(EngineWavePlayer, PauseKeepsThePlaceToTheSample) {
  OfflineDesk desk;
  desk.Wave.FileName = desk.Files.Wav("chime.wav", 1);
  desk.Wave.Command("Open");
  desk.Wave.Command("Play");
  std::vector<float> sound = desk.Render(10000);
  desk.Wave.Command("Pause");
  EXPECT_EQ(desk.Wave.Mode(), kWavePaused);
  const std::vector<float> fading = desk.Render(441);
  EXPECT_EQ(Loudest(desk.Render(44100)), 0);
  desk.Wave.Command("Play");
  const std::vector<float> rest = desk.RenderUntil("525");
  // The fade takes 5 ms on either side; no other frame is lost or repeated.
  std::size_t faded = 441;
  while (faded > 0 && fading[faded * 2 - 2] == 0) --faded;
  EXPECT_LE(faded, 222u);
  std::size_t held = 0;  // silent frames before it goes on
  while (held < rest.size() / 2 && rest[held * 2] == 0) ++held;
  EXPECT_LE(held, 222u);
  std::size_t last = rest.size() / 2;
  while (last > 0 && rest[last * 2 - 2] == 0) --last;
  EXPECT_NEAR(double(10000 + faded + last - held), 44100, 3);
  EXPECT_EQ(desk.Journal, "done 525 ");
}

TEST(EngineWavePlayer, NothingIsReportedAfterThePlayerIsGone) {
  OfflineDesk desk;
  std::string journal;
  {
    EngineWavePlayer player(desk.Engine, desk.Loop);
    player.OnStatusUpdate = [&] { journal += "late "; };
    player.FileName = desk.Files.Wav("chime.wav", 0.1);
    player.Command("Open");
    player.Command("Play");
    desk.Render(441);
    player.Command("Stop");
  }
  desk.Render(44100);
  EXPECT_EQ(journal, "");
}

TEST(EngineWavePlayer, TwoThousandShortPlaysEachReportOnce) {
  OfflineDesk desk;
  int reports = 0;
  desk.Wave.OnDone = nullptr;
  desk.Wave.OnStatusUpdate = [&] { ++reports; };
  desk.Wave.FileName = desk.Files.Wav("click.wav", 0.002);
  constexpr int kPlays = 2000;
  for (int i = 0; i < kPlays; ++i) {
    desk.Wave.Command("Close");
    desk.Wave.Command("Open");
    desk.Wave.Command("Play");
    for (int blocks = 0; reports == i && blocks < 1000; ++blocks) desk.Render(441);
    ASSERT_EQ(reports, i + 1);
  }
}

}  // namespace
}  // namespace marlex
