#include "desktop/sound/engine_song_player.h"

#include <gtest/gtest.h>

#include "desktop/sound/offline_desk.h"

namespace marlex {
namespace {

TEST(EngineSongPlayer, PlaysASongToItsEndWithoutTheEncodersSilence) {
  OfflineDesk desk;
  desk.Song.SetFileName(desk.Files.Mp3("song.mp3", 1.5));
  EXPECT_EQ(desk.Song.FileName(), desk.Files.Path("song.mp3"));
  EXPECT_NEAR(desk.Song.Duration(), 1.5, 1e-6);
  EXPECT_EQ(desk.Song.PlayState(), kStopped);
  EXPECT_EQ(Loudest(desk.Render(441)), 0);
  desk.Song.Play();
  EXPECT_EQ(desk.Song.PlayState(), kPlaying);
  const std::vector<float> sound = desk.RenderUntil("end");
  EXPECT_NEAR(double(sound.size()) / 2, 66150, OfflineDesk::kBlock);
  EXPECT_NEAR(Loudest(sound), 0.5, 0.05);
  EXPECT_EQ(Loudest(sound, 66150), 0);
  EXPECT_EQ(desk.Song.PlayState(), kStopped);
  EXPECT_EQ(desk.Song.CurrentPosition(), 0);
  EXPECT_NEAR(desk.Song.Duration(), 1.5, 1e-6);
  desk.Render(44100);
  EXPECT_EQ(desk.Journal, "end ");
}

TEST(EngineSongPlayer, PositionCountsTheSamplesThatWereTaken) {
  OfflineDesk desk;
  desk.Song.SetFileName(desk.Files.Mp3("song.mp3", 2));
  desk.Song.Play();
  desk.Render(22050);
  EXPECT_DOUBLE_EQ(desk.Song.CurrentPosition(), 0.5);
}

TEST(EngineSongPlayer, PauseKeepsThePositionAndGoesOnThere) {
  OfflineDesk desk;
  desk.Song.SetFileName(desk.Files.Mp3("song.mp3", 2));
  desk.Song.Pause();
  EXPECT_EQ(desk.Song.PlayState(), kStopped);
  desk.Song.Play();
  desk.Render(22050);
  desk.Song.Pause();
  EXPECT_EQ(desk.Song.PlayState(), kPaused);
  EXPECT_DOUBLE_EQ(desk.Song.CurrentPosition(), 0.5);
  EXPECT_EQ(Loudest(desk.Render(44100), 441), 0);
  EXPECT_DOUBLE_EQ(desk.Song.CurrentPosition(), 0.5);
  desk.Song.Play();
  const std::vector<float> rest = desk.RenderUntil("end");
  EXPECT_NEAR(double(rest.size()) / 2, 1.5 * 44100, 2 * OfflineDesk::kBlock);
}

TEST(EngineSongPlayer, AnEndThatWasNotDeliveredYetIsDroppedByAStopAndByTheNextSong) {
  OfflineDesk desk;
  const std::string song = desk.Files.Mp3("song.mp3", 0.1);
  std::vector<float> block(2 * 4096);
  for (const bool stop : {true, false}) {
    desk.Song.SetFileName(song);
    desk.Song.Play();
    for (int i = 0; i < 4; ++i) desk.Engine.Render(block.data(), 4096);
    EXPECT_EQ(desk.Song.PlayState(), kPlaying);  // the end is not delivered yet
    if (stop) {
      desk.Song.Stop();
    } else {
      desk.Song.SetFileName(song);
    }
    desk.Render(4410);
    EXPECT_EQ(desk.Journal, "");
  }
}

TEST(EngineSongPlayer, AnEndNotDeliveredBeforeAPauseIsKeptUntilTheSongGoesOn) {
  OfflineDesk desk;
  desk.Song.SetFileName(desk.Files.Mp3("song.mp3", 0.1));
  desk.Song.Play();
  std::vector<float> block(2 * 4096);
  for (int i = 0; i < 4; ++i) desk.Engine.Render(block.data(), 4096);
  desk.Song.Pause();
  desk.Render(44100);
  EXPECT_EQ(desk.Journal, "");
  EXPECT_EQ(desk.Song.PlayState(), kPaused);
  EXPECT_NEAR(desk.Song.CurrentPosition(), 0.1, 1e-6);
  desk.Song.Play();
  EXPECT_EQ(desk.Journal, "");  // no callback inside a call
  EXPECT_EQ(desk.Song.PlayState(), kPlaying);
  desk.RenderUntil("end", 1);
  desk.Render(44100);
  EXPECT_EQ(desk.Journal, "end ");
  EXPECT_EQ(desk.Song.PlayState(), kStopped);
}

TEST(EngineSongPlayer, SongsFollowEachOtherWithoutAGap) {
  OfflineDesk desk;
  const std::string song = desk.Files.Mp3("song.mp3", 0.5);
  int ends = 0;
  desk.Song.OnEndOfStream = [&] {
    if (++ends == 3) return;
    desk.Song.SetFileName(song);
    desk.Song.Play();
  };
  desk.Song.SetFileName(song);
  desk.Song.Play();
  int blocks = 0;
  for (; ends < 3 && blocks < 1000; ++blocks) desk.Render(441);
  EXPECT_NEAR(blocks, 150, 6);
}

TEST(EngineSongPlayer, ASongWhoseFileVanishesInMidPlayEndsByItself) {
  OfflineDesk desk;
  const std::string song = desk.Files.Mp3("song.mp3", 20);
  desk.Song.SetFileName(song);
  desk.Song.Play();
  desk.Render(4410);
  std::filesystem::resize_file(song, 0);
  desk.RenderUntil("end", 30);
  EXPECT_EQ(desk.Journal, "end ");
  desk.Song.SetFileName(song);
  EXPECT_EQ(desk.Song.FileName(), "");
}

TEST(EngineSongPlayer, ManySongsStartedAndReplacedInOneBlockLeaveOneSounding) {
  OfflineDesk desk;
  const std::string song = desk.Files.Mp3("song.mp3", 1);
  for (int i = 0; i < 40; ++i) {
    desk.Song.SetFileName(song);
    desk.Song.Play();
  }
  desk.Render(441);
  EXPECT_NEAR(Loudest(desk.Render(22050)), 0.5, 0.05);
  desk.RenderUntil("end");
  desk.Render(44100);
  EXPECT_EQ(desk.Journal, "end ");
}

TEST(EngineSongPlayer, ADriveThatHangsDoesNotHoldUpTheDesk) {
  OfflineDesk desk;
  static std::atomic<bool> drive{false};  // static: a decoder cannot capture it
  drive = false;
  const OpenDecoder hanging = [](const std::string&) -> std::unique_ptr<Decoder> {
    while (!drive) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return nullptr;
  };
  const auto begin = std::chrono::steady_clock::now();
  const auto stream = desk.Engine.Load("song.mp3", hanging, EndReport::kHandedOver);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(600));
  ASSERT_NE(stream, nullptr);
  bool ended = false;
  stream->Play();
  drive = true;
  desk.Engine.Play(stream, [&] { ended = true; });
  for (int i = 0; i < 5000 && !ended; ++i) desk.Render(441);
  EXPECT_TRUE(ended);
  desk.Engine.Release(stream);
}

}  // namespace
}  // namespace marlex
