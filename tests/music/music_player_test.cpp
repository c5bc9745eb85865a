#include "music/music_player.h"

#include <gtest/gtest.h>

#include "desk/deeds.h"
#include "music/music_desk.h"

namespace marlex {
namespace {

TEST(FormatSeconds, RoundsToWholeSecondsAndTiesToTheEvenOne) {
  const std::vector<std::pair<double, std::string>> times = {
      {0, "0:00"},     {0.4, "0:00"},   {2.5, "0:02"},       {3.5, "0:04"},  {9.4, "0:09"},
      {59.4, "0:59"},  {59.6, "1:00"},  {60.5, "1:00"},      {61.5, "1:02"}, {600, "10:00"},
      {3600, "60:00"}, {4510, "75:10"}, {360'000, "6000:00"}};
  for (const auto& [seconds, text] : times) EXPECT_EQ(FormatSeconds(seconds), text);
}

TEST(MusicPlayer, AtTheStartOnlyThePlayButtonIsOnAndTheLabelsAreEmpty) {
  MusicDesk desk;
  EXPECT_EQ(desk.Buttons(), "Play");
  EXPECT_EQ(desk.Text("lblMP3Number"), "");
  EXPECT_EQ(desk.Text("lblMP3Length"), "");
  EXPECT_EQ(desk.Text("lblMP3Position"), "");
  EXPECT_EQ(desk.Main().lstPlaylist.ToolTipText.Get(),
            desk.Sys->Strings.LoadString(kStrDoubleClickToPlay));
}

TEST(MusicPlayer, ThePlayButtonPlaysTheSelectedSongFromItsBeginning) {
  MusicDesk desk({.Music = {{"a", 61'600}, {"b", 4'510'000}}});
  desk.Select(1);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.Text("lblMP3Number"), "2/2");
  EXPECT_EQ(desk.Text("lblMP3Length"), "75:10");
  EXPECT_EQ(desk.LastSong(), "1");
  EXPECT_EQ(desk.Sys->Music.CurrentSongIndex, 1);
  EXPECT_EQ(desk.Sys->Music.CurrentSongPath, "/music/b.mp3");
  desk.Advance(62'000);
  EXPECT_EQ(desk.Text("lblMP3Position"), "1:02");
  EXPECT_EQ(desk.Journal(), "0 song play b.mp3\n");
}

TEST(MusicPlayer, ThePlayButtonRestartsTheSelectedSongInTheMiddleOfIt) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(4000);
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.Text("lblMP3Position"), "0:01");
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n4000 song stop\n4000 song play a.mp3\n");
}

TEST(MusicPlayer, ThePlayButtonBringsTheLevelsOfTheMusicBack) {
  MusicDesk desk;
  EXPECT_TRUE(desk.MuteCheck(0));
  EXPECT_TRUE(desk.WaveMute().Value);
  desk.Do([&] {
    desk.Wave().Value = FrmMxr::kSilent;
    desk.Sys->TheFrmMxr.SldrVol[0].Value = 60'000;
  });
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  EXPECT_EQ(desk.Slider(0), 5000);
  EXPECT_FALSE(desk.MuteCheck(0));
  EXPECT_FALSE(desk.WaveMute().Value);
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(MusicPlayer, ThePlayButtonEndsTheSilenceThatTheStopButtonMade) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Click("cmdStop");
  EXPECT_EQ(desk.Heard(), "silence");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

/// What the play button must leave alone when it refuses.
std::string Untouched(MusicDesk& desk) {
  return desk.Buttons() + "|" + desk.Text("lblMP3Number") + "|" + desk.LastSong() + "|" +
         desk.Sys->Music.CurrentSongPath + "|" + (desk.MuteCheck(0) ? "muted" : "open");
}

TEST(MusicPlayer, WithoutItsDirectoryThePlayButtonSaysSoAndChangesNothing) {
  MusicDesk desk;
  desk.Pc.Disk.Vanish("/music");
  desk.Click("cmdPlay");
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body, "Cannot find music directory /music/");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Caption, "Problem");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Icon, BoxIcon::Critical);
  EXPECT_EQ(Untouched(desk), "Play||||muted");
  desk.Pc.Disk.Return("/music");
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(MusicPlayer, ADirectoryWithoutAFileCountsAsNotFound) {
  MusicDesk desk;
  for (const Medium& song : MusicDesk::Songs(3)) {
    desk.Pc.Disk.Remove("/music/" + song.Name + ".mp3");
  }
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Journal(), "0 box Problem: Cannot find music directory /music/\n");
}

TEST(MusicPlayer, TheBoxOfALostDirectoryIsNotOpenedTwice) {
  MusicDesk desk;
  desk.Pc.Disk.Vanish("/music");
  desk.Pc.Dialogs.AnswerAfterMs = SimulatedDialogs::kNever;
  for (int click = 0; click < 5; ++click) desk.Click("cmdPlay");
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
  desk.Pc.Dialogs.Answer();
  desk.Advance(0);
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 0);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Pc.Dialogs.OpenBoxCount(), 1);
}

TEST(MusicPlayer, WhileTheAmplifierHoldsItBackThePlayButtonEndsWithoutAWord) {
  MusicDesk desk;
  desk.Status(64);
  desk.Click("cmdPlay");
  EXPECT_EQ(Untouched(desk), "Play||||muted");
  EXPECT_EQ(desk.Journal(), "");
}

TEST(MusicPlayer, WithTheOtherAmplifierNothingHoldsThePlayButtonBack) {
  MusicDesk desk({.Router = false});
  desk.Do([&] { desk.State().PriorityClear = false; });
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song a.mp3 at 20000");
}

TEST(MusicPlayer, WithNoSelectionThePlayButtonStartsTheFirstSong) {
  MusicDesk desk({.LastSong = "2"});
  desk.Select(-1);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Journal(), "0 song refuse .mp3\n0 song play a.mp3\n");
  EXPECT_EQ(desk.Position(), 0);
  EXPECT_EQ(desk.LastSong(), "0");
  EXPECT_EQ(desk.Text("lblMP3Number"), "1/3");
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:10");
}

TEST(MusicPlayer, SongsFollowOneAnotherForEverAndThePositionIsStored) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  std::string stored;
  for (int song = 0; song < 4; ++song) {
    desk.Advance(5000);
    stored += desk.LastSong() + " " + desk.Text("lblMP3Number") + " ";
    desk.Advance(5000);
  }
  EXPECT_EQ(stored, "0 1/3 1 2/3 2 3/3 0 1/3 ");
  EXPECT_EQ(desk.Journal(),
            "0 song play a.mp3\n"
            "10000 song end\n10000 song play b.mp3\n"
            "20000 song end\n20000 song play c.mp3\n"
            "30000 song end\n30000 song play a.mp3\n"
            "40000 song end\n40000 song play b.mp3\n");
}

TEST(MusicPlayer, TenThousandSongsOfNoLengthPlayOneAfterTheOther) {
  MusicDesk desk({.Music = MusicDesk::Songs(3, 0)});
  desk.Pc.Journal.Only({"failure"});
  desk.Click("cmdPlay");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Position(), 10'000 % 3);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(MusicPlayer, TheLengthOfTheLastSongStaysOnShowForTheWholeOfTheFirst) {
  MusicDesk desk({.Music = {{"a", 10'000}, {"b", 20'000}}});
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:10");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:20");
  desk.Advance(29'999);
  EXPECT_EQ(desk.Text("lblMP3Number"), "1/2");
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:20");
  desk.Advance(10'001);
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:20");
}

TEST(MusicPlayer, TheLengthOfASongOnASlowDriveIsShownAsSoonAsItIsKnown) {
  MusicDesk desk({.Music = {{"a", 10'000}, {"b", 20'000}}});
  desk.Pc.Song.SetLengthDelay(450);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:00");
  desk.Advance(600);
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:10");
  desk.Advance(9'400);
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:00");
  desk.Advance(600);
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:20");
  desk.Advance(25'000);
  EXPECT_EQ(desk.Text("lblMP3Number"), "1/2");
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:20");
}

TEST(MusicPlayer, AListOfOneSongRepeatsItWithTheLengthOfItsFirstPass) {
  MusicDesk desk({.Music = {{"a", 10'000}}});
  desk.Click("cmdPlay");
  desk.Pc.Disk.AddMp3("/music/a.mp3", 30'000);
  desk.Advance(10'000);
  desk.Advance(30'000);
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:10");
  EXPECT_EQ(desk.LastSong(), "0");
  EXPECT_EQ(desk.Journal(),
            "0 song play a.mp3\n10000 song end\n10000 song play a.mp3\n"
            "40000 song end\n40000 song play a.mp3\n");
}

TEST(MusicPlayer, ANewSongPlaysAtTheLevelThatTheLastOneHad) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Click("mnuSettings");
  FrmSettings& dialog = desk.Sys->TheWindows.frmSettings;
  desk.Do([&] {
    dialog.slMusicVolume.Value = 30'000;
    dialog.slMasterVolume.Value = 7000;
  });
  desk.Click("cmdCancel");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Heard(), "song b.mp3 at 30000");
  EXPECT_EQ(desk.Slider(0), 7000);
}

TEST(MusicPlayer, ANewSongOpensNoLineThatIsMuted) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Status(128);
  desk.Click("cmdSkip");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/c.mp3");
  EXPECT_TRUE(desk.WaveMute().Value);
  EXPECT_TRUE(desk.MuteCheck(0));
}

/// The selections of the list from now to the next song.
std::vector<int> StepOfSelection(int songs, int from) {
  MusicDesk desk({.Music = MusicDesk::Songs(songs)});
  desk.Select(from);
  desk.Click("cmdPlay");
  std::vector<int> selections;
  desk.List().Watcher = [&] { selections.push_back(desk.Position()); };
  desk.Click("cmdSkip");
  desk.List().Watcher = nullptr;
  return selections;
}

TEST(MusicPlayer, InALongListTheSelectionRunsAheadAndBackToScrollIt) {
  EXPECT_EQ(StepOfSelection(19, 8), (std::vector<int>{18, 9}));
  EXPECT_EQ(StepOfSelection(19, 9), (std::vector<int>{10}));
  EXPECT_EQ(StepOfSelection(19, 0), (std::vector<int>{10, 1}));
  EXPECT_EQ(StepOfSelection(19, 18), (std::vector<int>{0}));
  EXPECT_EQ(StepOfSelection(18, 0), (std::vector<int>{1}));
  EXPECT_EQ(StepOfSelection(18, 17), (std::vector<int>{0}));
}

TEST(MusicPlayer, ASkipEndsTheSongAtOnce) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(3000);
  desk.Click("cmdSkip");
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n3000 song stop\n3000 song play b.mp3\n");
  EXPECT_EQ(desk.LastSong(), "1");
}

TEST(MusicPlayer, ASongEndWritesThePositionBeforeItLoadsTheNextSong) {
  MusicDesk desk({.Music = MusicDesk::Songs(2)});
  desk.Click("cmdPlay");
  desk.Pc.Journal.Only({"song", "write", "load"});
  const auto written = [](const std::string& song) {
    return std::string("10000 write Day.lst [Last played] Last song=") + song + "\n";
  };
  desk.Pc.Journal.Clear();
  desk.Advance(10'000);
  EXPECT_EQ(desk.TakeJournal(),
            "10000 song end\n" + written("1") + "10000 load b.mp3\n10000 song play b.mp3\n");
  desk.Advance(10'000);
  EXPECT_EQ(desk.TakeJournal(),
            "10000 song end\n" + written("0") + "10000 load a.mp3\n10000 song play a.mp3\n");
}

TEST(MusicPlayer, PlayOnAnEmptyListStoresNoSelectionAndWakesTheButtons) {
  MusicDesk desk;
  desk.Do([&] { desk.List().Clear(); });
  desk.Click("cmdPlay");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "0 song refuse .mp3\n");
  EXPECT_EQ(desk.LastSong(), "-1");
  EXPECT_EQ(desk.Text("lblMP3Number"), "0/0");
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:00");
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.PlayState(), kStopped);
}

TEST(MusicPlayer, TheStopButtonStopsAndMutesAndBarsTheClock) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(3000);
  desk.Click("cmdStop");
  EXPECT_EQ(desk.Buttons(), "Play");
  EXPECT_TRUE(desk.WaveMute().Value);
  EXPECT_FALSE(desk.MuteCheck(0));
  EXPECT_EQ(desk.WaveSlider(), 20'000);
  EXPECT_EQ(desk.MusicFlags(), "ByUser");
  desk.Advance(60'000);
  EXPECT_EQ(desk.Text("lblMP3Position"), "");
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n3000 song stop\n");
}

TEST(MusicPlayer, ThePositionIsShownWhilePlayingAndPausedAndElseEmpty) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Advance(2600);
  EXPECT_EQ(desk.Text("lblMP3Position"), "0:03");
  PauseByPreview(desk);
  desk.Advance(5000);
  EXPECT_EQ(desk.Text("lblMP3Position"), "0:03");
  desk.Click("cmdStop");
  desk.Advance(100);
  EXPECT_EQ(desk.Text("lblMP3Position"), "");
}

TEST(MusicPlayer, APriorityCallLeavesTheStateOfTheMusicAsItIs) {
  MusicDesk desk;
  desk.Click("cmdPlay");
  desk.Status(192);
  desk.Advance(12'000);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.MusicFlags(), "");
  EXPECT_EQ(desk.Journal(), "0 song play a.mp3\n10000 song end\n10000 song play b.mp3\n");
}

TEST(MusicPlayer, AMessagePausesTheSongAndGivesItBackWhereItWas) {
  MusicDesk desk({.Music = MusicDesk::Songs(3, 120'000), .Sequences = {{}}});
  desk.Click("cmdPlay");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.PlayState(), kPaused);
  EXPECT_EQ(desk.Buttons(), "");
  const std::string position = desk.Text("lblMP3Position");
  desk.Advance(2000);
  EXPECT_EQ(desk.Text("lblMP3Position"), position);
  desk.Advance(10'000);
  EXPECT_EQ(desk.PlayState(), kPlaying);
  EXPECT_EQ(desk.Buttons(), "Play Skip Stop");
  EXPECT_EQ(desk.Pc.Song.FileName(), "/music/a.mp3");
}

TEST(MusicPlayer, ALengthThatStayedUnknownIsNotThatOfTheNextRoundsFirstSong) {
  MusicDesk desk({.Music = {{"a", 10'000}, {"b", 20'000}}});
  desk.Pc.Song.SetLengthDelay(450);
  desk.Select(1);
  desk.Click("cmdPlay");
  desk.Advance(200);
  desk.Click("cmdSkip");
  desk.Advance(2000);
  EXPECT_EQ(desk.Text("lblMP3Number"), "1/2");
  EXPECT_EQ(desk.Text("lblMP3Length"), "0:00");
}

}  // namespace
}  // namespace marlex
