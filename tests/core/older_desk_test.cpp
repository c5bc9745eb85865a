// Files that were written by an older desk: in the code page of its language, in UTF-16, and with
// names in any mix of cases.

#include <gtest/gtest.h>

#include "core/settings_desk.h"

namespace marlex {
namespace {

/// A text of Latin letters in UTF-16.
std::string InUtf16(const std::string& text, bool bigEndian = false) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : text) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

/// A change to the PC before the start: a playlist with this text, and a song.
std::function<void(SimulatedPc&)> Playlist(const std::string& text,
                                           const std::string& song = "/music/march.mp3") {
  return [=](SimulatedPc& pc) {
    pc.Profiles.WriteString("Playlist", "Current List", Desk::kPlaylist, Desk::kIni);
    pc.Disk.AddFile(Desk::kPlaylist, text);
    pc.Disk.AddMp3(song, 60'000);
  };
}

TEST(OlderDesk, ItsTextIsReadByTheCodePageOfTheChosenLanguage) {
  const std::vector<std::array<std::string, 3>> names = {
      {"English", "Caf\xE9 \x80", "Café €"},
      {"German", "K\xFC\x63he", "Küche"},
      {"Norwegian", "Kj\xF8kken", "Kjøkken"},
      {"Hungarian", "F\xF5\x62\x65j\xE1rat", "Főbejárat"},
      {"Greek", "\xC1\xDF\xE8\xEF\xF5\xF3\xE1", "Αίθουσα"},
      {"Russian", "\xC7\xE0\xEB", "Зал"},
      {"Hebrew", "\xE0\xE5\xEC\xED", "אולם"},
      {"Turkish", "\xDE\x75\x62\x65", "Şube"},
      {"Klingon", "Caf\xE9", "Café"}};
  for (const auto& [language, bytes, text] : names) {
    Desk desk({.Language = language}, With("Zone names", "Zone:1", bytes));
    EXPECT_EQ(desk.Text("lblZoneName_0"), text) << language;
  }
}

TEST(OlderDesk, TextThatIsUtf8IsThatInEveryLanguage) {
  for (const char* language : {"German", "Russian", "Hebrew"}) {
    Desk desk({.Language = language}, With("Zone names", "Zone:1", "Küche"));
    EXPECT_EQ(desk.Text("lblZoneName_0"), "Küche");
  }
}

TEST(OlderDesk, TheLanguageThatIsChosenAtTheFirstStartCounts) {
  Desk desk({.Language = ""}, With("Zone names", "Zone:1", "\xC7\xE0\xEB"));
  desk.Click("optLanguage_7");
  desk.Click("cmdOK");
  desk.Advance(2500);
  EXPECT_EQ(desk.Text("lblZoneName_0"), "Зал");
}

TEST(OlderDesk, BytesThatNobodyChangesStay) {
  SettingsDesk desk({}, With("Zone names", "Zone:1", "K\xFC\x63he"));
  desk.Open();
  EXPECT_EQ(desk.TheFrmSettings().txtZoneName[0].Text.Get(), "Küche");
  desk.Type(desk.TheFrmSettings().txtZoneName[1], "Höfe");
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Setting("Zone names", "Zone:1"), "K\xFC\x63he");
  EXPECT_EQ(desk.Setting("Zone names", "Zone:2"), "Höfe");
}

TEST(OlderDesk, BytesInQuotesThatNobodyChangesStay) {
  for (const char* value : {"\"'K\xFC\x63he'\"", "'K\xFC\x63he'", "\" K\xFC\x63he\""}) {
    SettingsDesk desk({}, With("Zone names", "Zone:1", value));
    desk.Open();
    desk.Click("cmdOK");
    EXPECT_NE(desk.Pc.Disk.Read(Desk::kIni)->find(std::string("Zone:1=") + value + "\r\n"),
              std::string::npos)
        << value;
  }
}

TEST(OlderDesk, ALongTextThatNobodyChangesKeepsItsBytes) {
  std::string bytes;
  for (int pair = 0; pair < 1000; ++pair) bytes += "\xC3\xA9";
  SettingsDesk desk({}, With("Zone names", "Zone:1", bytes + "\xE9"));
  desk.Open();
  desk.Click("cmdOK");
  EXPECT_NE(desk.Pc.Disk.Read(Desk::kIni)->find("Zone:1=" + bytes + "\xE9\r\n"), std::string::npos);
}

TEST(OlderDesk, ALongTextIsCutAtAsManyCharactersAsAnyOther) {
  std::string bytes;
  for (int pair = 0; pair < 1000; ++pair) bytes += "\xC3\xA9";
  SettingsDesk desk({}, With("Zone names", "Zone:1", bytes + "\xE9"));
  std::string text;
  for (int pair = 0; pair < 749; ++pair) text += "Ã©";
  EXPECT_EQ(desk.Text("lblZoneName_0"), text + "Ã");
}

TEST(OlderDesk, ASongOfItsPlaylistIsFoundByItsName) {
  Desk desk({}, Playlist("[Playlist]\r\nSong:1=\xDC\x62ung\r\n", "/music/Übung.mp3"));
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song Übung.mp3 at 20000");
}

TEST(OlderDesk, NamesAreFoundWithoutRegardToCaseWhereTheExactOneIsMissing) {
  Desk desk({}, [](SimulatedPc& pc) {
    Playlist("[Playlist]\r\nSong:1=\xFC\x42UNG\r\nSong:2=march\r\n", "/music/Old/Übung.MP3")(pc);
    With("Selected paths", "Music directory", "/MUSIC/old/")(pc);
    With("Playlist", "Current List", "/app/DAY.lst")(pc);
    pc.Disk.AddMp3("/music/Old/March.mp3", 60'000);
    pc.Disk.AddMp3("/music/Old/march.mp3", 60'000);
  });
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song üBUNG.mp3 at 20000");
  EXPECT_EQ(desk.Setting("Last played", "Last song", Desk::kPlaylist), "0");
  EXPECT_EQ(desk.Pc.Disk.List("/app", "day.*"), std::vector<std::string>{"Day.lst"});
  desk.Click("cmdSkip");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
}

TEST(OlderDesk, ASongWhoseNameOnTheDiskIsInACodePageIsListedAndPlayed) {
  Desk desk({.Language = "Russian"},
            [](SimulatedPc& pc) { Playlist("", "/music/\xCF\xE5\xF1\xED\xFF.mp3")(pc); });
  desk.Click("mnuPlaylist");
  desk.Choose(desk.Sys->TheWindows.frmPlaylist.AvailMP3s, "Песня");
  desk.Pc.Dialogs.OpenResults = {"/app/new.lst", "/app/new.lst"};
  desk.Do([&] { desk.Sys->TheWindows.frmPlaylist.mnuSave.OnClick(); });
  desk.Advance(0);
  desk.Do([&] { desk.Main().mnuOpen.OnClick(); });
  desk.Advance(0);
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song Песня.mp3 at 20000");
}

TEST(OlderDesk, APlaylistInUtf16IsReadAndWrittenAsSuch) {
  for (const bool bigEndian : {false, true}) {
    const std::string text = "[Playlist]\r\nSong:1=gone\r\nSong:2=march\r\n";
    Desk desk({}, Playlist(InUtf16(text, bigEndian)));
    desk.Select(1);
    desk.Click("cmdPlay");
    EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
    EXPECT_EQ(desk.Pc.Disk.Read(Desk::kPlaylist),
              InUtf16(text + "[Last played]\r\nLast song=1\r\n", bigEndian));
  }
}

TEST(OlderDesk, APlaylistInUtf16ThatTheEditorSavesIsMadeNewInUtf8) {
  Desk desk({}, Playlist(InUtf16("[Playlist]\r\nSong:1=march\r\n"), "/music/Übung.mp3"));
  desk.Click("mnuPlaylist");
  desk.Choose(desk.Sys->TheWindows.frmPlaylist.AvailMP3s, "Übung");
  desk.Pc.Dialogs.OpenResults = {Desk::kPlaylist};
  desk.Do([&] { desk.Sys->TheWindows.frmPlaylist.mnuSave.OnClick(); });
  desk.Advance(0);
  EXPECT_EQ(desk.Pc.Disk.Read(Desk::kPlaylist)->find("[Last played]\r\nLast song=0\r\n"), 0U);
  EXPECT_EQ(desk.Setting("Playlist", "Song:1", Desk::kPlaylist), "Übung");
}

TEST(OlderDesk, AFileThatHoldsNoTextIsNeverAppendedTo) {
  for (const std::string& bytes :
       {std::string("ID3\x04\0\0\0\0", 8), std::string("\xFF\xFE\0\0[\0\0\0", 8),
        std::string("\xFF\xFE[\0\n", 5), std::string("\xFF\xFE\x00\xD8[\0", 6)}) {
    Desk desk({}, [&](SimulatedPc& pc) {
      Playlist(bytes)(pc);
      pc.Profiles.WriteString("Playlist", "Current List", "/app/music.lst", Desk::kIni);
      pc.Disk.AddFile("/app/music.lst", "[Playlist]\r\nSong:1=march\r\n");
    });
    desk.Values().CurrentPlaylistFile = Desk::kPlaylist;
    desk.Click("cmdPlay");
    EXPECT_EQ(desk.Pc.Disk.Read(Desk::kPlaylist), bytes);
  }
}

/// The settings of a folder that was copied from a PC whose paths begin with the letter of a drive.
void CopyFromDrives(SimulatedPc& pc) {
  With("Selected paths", "Music directory", R"(C:\Songs\)")(pc);
  With("Selected paths", "Message directory", R"(C:\Spots\)")(pc);
  With("Playlist", "Current List", R"(C:\Desk\Day.lst)")(pc);
  With("Current sequence list", "Sequence path", R"(C:\Desk\)")(pc);
}

TEST(OlderDesk, WhatItsPathsOnADriveNoLongerNameIsSaid) {
  SettingsDesk desk({.Music = {{"march"}}, .Sequences = {{.File = "day.sch"}}}, CopyFromDrives);
  desk.Advance(10'000);
  EXPECT_EQ(desk.Sys->ThePasserby.Look().Faults,
            (std::vector<std::string>{R"(File not found: C:\Desk\day.sch)",
                                      R"(File not found: C:\Desk\Day.lst)"}));
  desk.Pc.Dialogs.OpenResults = {Desk::kPlaylist};
  desk.Click("mnuOpen");
  desk.Advance(0);
  desk.Click("cmdPlay");
  desk.Advance(0);
  EXPECT_EQ(desk.BoxTexts(), "Problem: Cannot find music directory C:\\Songs\\\n");
}

TEST(OlderDesk, OnceItsPathsAreChosenAgainItsFilesPlay) {
  SettingsDesk desk({.Music = {{"march"}}, .Sequences = {{.File = "day.sch"}}}, CopyFromDrives);
  desk.Open();
  desk.Click("cmdBgBrowse");
  desk.DoubleClick(desk.DirSel().Dir1, "/");
  desk.Choose(desk.DirSel().Dir1, "/music");
  desk.Click("cmdOK");
  desk.Click("cmdMsgBrowse");
  desk.DoubleClick(desk.DirSel().Dir1, "/");
  desk.Choose(desk.DirSel().Dir1, "/messages");
  desk.Click("cmdOK");
  desk.Click("cmdOK");  // of the settings
  desk.Pc.Dialogs.OpenResults = {Desk::kPlaylist, "/app/day.sch"};
  desk.Click("mnuOpen");
  desk.Advance(0);
  desk.Click("mnuSequence");
  desk.Advance(10'000);
  EXPECT_EQ(desk.Sys->ThePasserby.Look().Faults, std::vector<std::string>());
  desk.Click("cmdPlay");
  EXPECT_EQ(desk.Heard(), "song march.mp3 at 20000");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.Heard(), "wav welcome.wav at 10000");
}

}  // namespace
}  // namespace marlex
