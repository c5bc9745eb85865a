// The real program's main window, part by part, against the sheets of the same scenes.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "system/real_desk.h"

namespace marlex {
namespace {

const std::string kSheets = MARLEX_BINARY_DIR "/sheets/100/";

/// The shop of the sheets. Only the songs and messages are shorter: their lengths are not compared.
stage::InstallationFiles Shop(bool hasMusicTimes = true) {
  stage::InstallationFiles files;
  for (const char* song : {"Evening walk", "Harbour lights", "Blue tram", "Morning market",
                           "Paper lanterns", "Slow river", "Garden of glass", "First snow"})
    files.Songs.push_back(
        {song, stage::Tone(kFirstSong, files.Songs.empty() ? 100 : 1, kTonePeak)});
  for (const char* message :
       {"gong", "good_morning", "offers_of_the_day", "lunch_break", "closing_time", "three_tones"})
    files.Messages.push_back({message, stage::Tone(kMessage, 0.4, kTonePeak)});
  files.Sequences = {
      {"Morning", "gong,good_morning", "7-11", "00,30", "120000"},
      {"Offers", "gong,offers_of_the_day,gong", "12-18", "01,21,41", "123456", "Exact", "1234560"},
      {"Breaks", "lunch_break", "12-14", "15", "003400", "Between", "1234500"},
      {"Closing", "gong,closing_time", "19,20", "45", "123456", "Exact", "1234560"}};
  files.Priority = "Low";
  files.MusicRouting = "111010";
  files.CallRouting = "100001";
  files.ZoneNames = {"Entrance", "Hall A", "Hall B", "Canteen", "Workshop", "Car park"};
  if (hasMusicTimes) {
    files.MusicStart = "08:00";
    files.MusicStop = "20:00";
  }
  files.Autostart = false;
  return files;
}

/// Digits count time and songs, which differ; that there is one, and how wide it is, does not.
std::string WithoutNumbers(const std::string& parts) {
  std::istringstream lines(parts);
  std::string all;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t text = line.find('"');
    all += line.substr(0, text) +
           std::regex_replace(line.substr(std::min(text, line.size())), std::regex("[0-9]"), "0") +
           '\n';
  }
  return all;
}

/// Paints the sheets of a scene again, so that they are not those of an older program.
std::string PartsOnTheSheet(const std::string& scene) {
  const std::string file = kSheets + scene + "/English.txt";
  std::filesystem::remove(file);
  stage::Command command;
  command.Arguments = {MARLEX_BINARY_DIR "/sheet_tests", "--gtest_filter=Of/EachScene.*/" + scene};
  command.Variables = {{"QT_QPA_PLATFORM", "offscreen"}, {"QT_SCALE_FACTOR", "1"}};
  EXPECT_EQ(Run(command), 0) << scene;
  std::ostringstream parts;
  parts << std::ifstream(file).rdbuf();
  return parts.str();
}

class RealShopDesk : public RealDesk {
 public:
  using RealDesk::RealDesk;

  /// Starts shortly before the minute of an announcement, on a small screen.
  void Open() {
    Start("2024-01-01 12:00:40");
    ASSERT_TRUE(Await("frmMain", "visible", "yes"));
    Display->Resize("Tolvo Marlex", 1024, 700);
    Display->Move(stage::VirtualDisplay::kWidth - 1, stage::VirtualDisplay::kHeight - 1);
  }

  /// The music plays by its clock. Goes on until the announcement is over and the music is back.
  void PassTheAnnouncement() {
    ASSERT_TRUE(AwaitTone(kFirstSong));
    ASSERT_TRUE(AwaitTone(kMessage, 40));
    ASSERT_TRUE(Await("frmMain.cmdPlay", "enabled", "yes"));
    ASSERT_TRUE(AwaitTone(kFirstSong));
  }

  /// Waits for the window to look like its sheet, since it follows a change with some delay.
  void ExpectLikeTheSheet(const std::string& scene) {
    const std::string sheet = WithoutNumbers(PartsOnTheSheet(scene));
    const auto shown = [this] { return WithoutNumbers(Window->Parts("frmMain")); };
    EXPECT_FALSE(sheet.empty());
    stage::WaitUntil([&] { return shown() == sheet; }, 5);
    EXPECT_EQ(shown(), sheet) << scene;
  }
};

TEST(Sheets, ShowTheProgramAtRest) {
  RealShopDesk desk(Shop(false), WithMicrophone());
  desk.Open();
  desk.ExpectLikeTheSheet("main_idle");
}

TEST(Sheets, ShowTheProgramWithMusicAndUnderATakeover) {
  RealShopDesk desk(Shop(), WithMicrophone());
  desk.Open();
  desk.PassTheAnnouncement();
  desk.ExpectLikeTheSheet("main_music");
  desk.Line->Send(128);
  desk.ExpectLikeTheSheet("main_takeover_higher");
}

TEST(Sheets, ShowTheProgramWithoutAMicrophone) {
  RealShopDesk desk(Shop());
  desk.Open();
  desk.PassTheAnnouncement();
  desk.ExpectLikeTheSheet("main_no_microphone");
}

}  // namespace
}  // namespace marlex
