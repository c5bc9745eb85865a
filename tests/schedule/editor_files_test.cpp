// The message schedule editor with sequence files that were written by hand, on other systems or in
// other alphabets.

#include <gtest/gtest.h>

#include "schedule/editor_desk.h"

namespace marlex {
namespace {

constexpr const char* kFile = EditorDesk::kFile;

/// The lines of a sequence file.
std::vector<std::string> Lines(const std::string& messages = "closing,gong") {
  return {"[Schedule]",         "Message(s)=" + messages, "Hour(s)=8-10", "Minute(s)=00,30",
          "Weekday(s)=1030500", "Zone(s)=020006",         "Timer=Exact"};
}

/// The text of these lines.
std::string Joined(const std::vector<std::string>& lines, const std::string& lineEnd = "\r\n") {
  std::string text;
  for (const std::string& line : lines) text += line + lineEnd;
  return text;
}

/// An ASCII text in two bytes a character, after a byte order mark.
std::string InUtf16(const std::string& text, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : text) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

struct FilesDesk : EditorDesk {
  void OpenText(const std::string& text) {
    Pc.Disk.AddFile(kFile, text);
    Open(kFile);
  }
  std::string File() { return Pc.Disk.Read(kFile).value_or("no file"); }

  /// What the window shows of a sequence: messages, hours, minutes, days, zones, mode.
  std::string Shown() {
    return Sequence() + "|" + TheWavWindow().txtHours.Text.Get() + "|" +
           TheWavWindow().txtMinutes.Text.Get() + "|" + Days() + "|" + Zones() + "|" +
           (TheWavWindow().optExact.Value() ? "Exact" : "Between");
  }
};

const std::string kShown = "closing gong|8-10|00,30|1-1-1--|-1---1|Exact";

TEST(EditorFiles, MayEndTheirLinesAsTheyLikeAndKeepThatWhenSaved) {
  for (const char* lineEnd : {"\r\n", "\n", "\r", "\r\r\n"}) {
    FilesDesk desk;
    desk.OpenText(Joined(Lines(), lineEnd));
    EXPECT_EQ(desk.Shown(), kShown);
    desk.Type(desk.TheWavWindow().txtHours, "11");
    desk.SaveAs(kFile);
    std::vector<std::string> lines = Lines();
    lines[2] = "Hour(s)=11";
    EXPECT_EQ(desk.File(), Joined(lines, lineEnd));
  }
}

TEST(EditorFiles, MaySpellAndPlaceTheirKeysAsTheyLikeAndKeepThatWhenSaved) {
  FilesDesk desk;
  desk.OpenText(
      "\xEF\xBB\xBF; of the shop\n[Other]\nkey = value\n[SCHEDULE]\nzone(S) = \"020006\"\n"
      "TIMER=Exact\n  minute(s)=00,30\nHOUR(s)=8-10\nWeekday(s)=1030500\nmessage(S)=closing,gong\n"
      "Colour=red\n");
  EXPECT_EQ(desk.Shown(), kShown);
  desk.Click("cmdZone_0");
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.File(),
            "\xEF\xBB\xBF; of the shop\n[Other]\nkey = value\n[SCHEDULE]\nzone(S) =120006\n"
            "TIMER=Exact\n  minute(s)=00,30\nHOUR(s)=8-10\nWeekday(s)=1030500\nmessage(S)=closing,"
            "gong\nColour=red\n");
}

TEST(EditorFiles, MayBeWrittenInUtf16AndStaySo) {
  for (const bool bigEndian : {false, true}) {
    FilesDesk desk;
    desk.OpenText(InUtf16(Joined(Lines()), bigEndian));
    EXPECT_EQ(desk.Shown(), kShown);
    desk.Type(desk.TheWavWindow().txtHours, "11");
    desk.SaveAs(kFile);
    std::vector<std::string> lines = Lines();
    lines[2] = "Hour(s)=11";
    EXPECT_EQ(desk.File(), InUtf16(Joined(lines), bigEndian));
  }
}

/// A file without weekdays and zones is not a sequence, and the screen stays as it was.
TEST(EditorFiles, OnesWithoutASequenceAreReportedAndChangeNothing) {
  std::string noise;
  for (int byte = 0; byte < 4096; ++byte) noise += static_cast<char>(byte * 37 % 256);
  for (const std::string& text :
       {std::string(), noise, std::string("RIFF\0\0\0\0WAVE", 12), std::string("[Schedule]\r\n"),
        InUtf16(Joined(Lines()), false) + "x", InUtf16(Joined(Lines()), true) + "x",
        Joined({"[Schedule]", "Zone(s)="})}) {
    FilesDesk desk;
    desk.Compose("9", "15");
    const std::string before = desk.Shown();
    desk.OpenText(text);
    desk.Advance(0);
    EXPECT_EQ(desk.LastBox(),
              "Error: new.sch: Weekday(s): Too few digits for the days or zones: \"\"");
    EXPECT_EQ(desk.Shown(), before);
    EXPECT_EQ(desk.TheWavWindow().Caption.Get(), "Message schedule");
    EXPECT_EQ(desk.Sys->Editor.ChosenFile, "");
  }
}

TEST(EditorFiles, OneThatIsUnfitIsReportedWithItsFileAndItsField) {
  FilesDesk desk;
  desk.OpenText("[Schedule]\r\nWeekday(s)=1030500\r\nZone(s)=0200\r\n");
  desk.Advance(0);
  EXPECT_EQ(desk.LastBox(),
            "Error: new.sch: Zone(s): Too few digits for the days or zones: \"0200\"");
}

TEST(EditorFiles, OnesThatAreMissingOrUnreadableAreReportedAndChangeNothing) {
  for (const bool missing : {true, false}) {
    FilesDesk desk;
    desk.Compose("9", "15");
    const std::string before = desk.Shown();
    if (!missing) desk.Pc.Disk.AddFile(kFile, Joined(Lines()));
    desk.Pc.Disk.FailReads(kFile);
    desk.Open(kFile);
    desk.Advance(0);
    EXPECT_EQ(desk.LastBox(),
              "Error: new.sch: Weekday(s): Too few digits for the days or zones: \"\"");
    EXPECT_EQ(desk.Shown(), before);
  }
}

TEST(EditorFiles, OneThatCannotBeReadIsNotWrittenOverEither) {
  FilesDesk desk;
  desk.Pc.Disk.AddFile(kFile, Joined(Lines()));
  desk.Pc.Disk.FailReads(kFile);
  desk.Compose("9", "15");
  desk.SaveAs(kFile);
  desk.Advance(1000);
  EXPECT_EQ(desk.LastBox(), "Error: The file cannot be saved: /app/new.sch");
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  desk.Pc.Disk.Heal(kFile);
  EXPECT_EQ(desk.File(), Joined(Lines()));
}

TEST(EditorFiles, AKeyThatIsAbsentIsAsGoodAsEmpty) {
  FilesDesk desk;
  desk.OpenText(Joined({"[Schedule]", "Weekday(s)=0000000", "Zone(s)=000000"}));
  EXPECT_EQ(desk.Shown(), "|||-------|------|Between");
  EXPECT_EQ(desk.TheWavWindow().SelectedWavs.ListCount(), 1);
}

TEST(EditorFiles, ASequenceSavedOverAForeignFileIsReadBack) {
  for (const std::string& old : {std::string("RIFF\0\0\0\0WAVE", 12), std::string("no sections"),
                                 InUtf16(Joined(Lines()), false), InUtf16(Joined(Lines()), true)}) {
    FilesDesk desk;
    desk.Pc.Disk.AddFile(kFile, old);
    desk.Compose("9", "15");
    const std::string before = desk.Shown();
    desk.SaveAs(kFile);
    desk.Advance(1000);
    desk.Click("mnuSchedule");
    desk.Open(kFile);
    EXPECT_EQ(desk.Shown(), before);
  }
}

/// Every value is limited to this length when it is read, here as elsewhere.
TEST(EditorFiles, AValueBeyondTheLongestIsCutThereOnReading) {
  std::string messages = "gong";
  for (int message = 0; message < 300; ++message) messages += ",gong";  // 1504 characters
  FilesDesk desk;
  desk.OpenText(Joined(Lines(messages)));
  ASSERT_EQ(desk.TheWavWindow().SelectedWavs.ListCount(), 300);
  EXPECT_EQ(desk.TheWavWindow().SelectedWavs.List(299), "gong");
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.File(), Joined(Lines(messages.substr(0, 1499))));

  std::vector<std::string> lines = Lines();
  lines[2] = "Hour(s)=" + std::string(5000, '8');
  desk.OpenText(Joined(lines));
  EXPECT_EQ(desk.TheWavWindow().txtHours.Text.Get(), std::string(1499, '8'));
}

TEST(EditorFiles, ALongSequenceIsWrittenWhole) {
  FilesDesk desk;
  desk.Compose();
  desk.Add(std::vector<std::string>(999, "closing"));
  desk.SaveAs(kFile);
  const std::string saved = desk.File();
  std::string messages = "welcome";
  for (int message = 0; message < 999; ++message) messages += ",closing";
  EXPECT_NE(saved.find("\r\nMessage(s)=" + messages + "\r\nHour(s)=12\r\n"), std::string::npos);
}

/// A desk with messages in four alphabets.
struct AlphabetsDesk : EditorDesk {
  AlphabetsDesk() {
    Click("mnuExit");
    for (const std::string& name : kNames) Pc.Disk.AddWav("/messages/" + name + ".wav", 1500);
    Click("mnuSchedule");
  }
  const std::vector<std::string> kNames = {"Καλωσήρθατε", "Закрытие", "ברוכים הבאים",
                                           "Günaydın Işık"};
};

TEST(EditorFiles, NamesOfEveryAlphabetAreListedSavedOpenedAndHeard) {
  AlphabetsDesk desk;
  desk.Add(desk.kNames);
  EXPECT_EQ(desk.Total(), "6");
  desk.Type(desk.TheWavWindow().txtHours, "12");
  desk.Type(desk.TheWavWindow().txtMinutes, "02");
  desk.Click("WkDays_0");
  desk.SaveAs("/app/Πρωί İşte.sch");
  EXPECT_EQ(desk.Pc.Disk.Read("/app/Πρωί İşte.sch"),
            "[Schedule]\r\nMessage(s)=Καλωσήρθατε,Закрытие,ברוכים הבאים,Günaydın Işık\r\n"
            "Hour(s)=12\r\nMinute(s)=02\r\nWeekday(s)=1000000\r\nZone(s)=000000\r\n"
            "Timer=Exact\r\n");
  desk.Advance(500);
  desk.Click("mnuSchedule");
  desk.Open("/app/Πρωί İşte.sch");
  EXPECT_EQ(desk.Sequence(), "Καλωσήρθατε Закрытие ברוכים הבאים Günaydın Işık");
  EXPECT_EQ(desk.Total(), "1.5");
  EXPECT_EQ(desk.TheWavWindow().Caption.Get(), "Message schedule Πρωί İşte.sch");
  EXPECT_EQ(desk.TheWavWindow().txtDescription.Text.Get(), "Πρωί İşte");
  desk.Click("mnuExit");
  desk.Pc.Dialogs.OpenResults = {"/app/Πρωί İşte.sch"};
  desk.Click("mnuSequence");
  desk.Pc.Journal.Clear();
  desk.Pc.Journal.Only({"wav"});
  desk.RunTo(12, 2, 30);
  for (const std::string& name : desk.kNames)
    EXPECT_NE(desk.Journal().find("wav end " + name + ".wav\n"), std::string::npos) << name;
}

TEST(EditorFiles, NamesInACodePageAreShownAsTextAndKeepTheirBytes) {
  const std::string name = "Begr\xFC\xDFung";
  FilesDesk desk;
  desk.Pc.Disk.AddWav("/messages/" + name + ".wav", 1500);
  desk.OpenText(Joined(Lines("gong," + name)));
  EXPECT_EQ(desk.Sequence(), "gong Begrüßung");
  EXPECT_EQ(desk.Total(), "1.5");
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.File(), Joined(Lines("gong," + name)));
}

/// The comma separates the names in the file.
TEST(EditorFiles, AMessageWithACommaInItsNameComesBackAsTwo) {
  FilesDesk desk;
  desk.Click("mnuExit");
  desk.Pc.Disk.AddWav("/messages/Hello, all.wav", 1500);
  desk.Click("mnuSchedule");
  desk.Compose();
  desk.Add({"Hello, all"});
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.Saved("Message(s)"), "welcome,Hello, all");
  desk.Open(kFile);
  EXPECT_EQ(desk.TheWavWindow().SelectedWavs.ListCount(), 3);
}

TEST(EditorFiles, AFurtherPointInAFilesNameIsNotSaved) {
  FilesDesk desk;
  desk.Click("mnuExit");
  desk.Pc.Disk.AddWav("/messages/a.b.wav", 5000);
  desk.Click("mnuSchedule");
  desk.Add({"a"});
  desk.Compose();
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.Saved("Message(s)"), "a,welcome");
  desk.Open(kFile);
  desk.Pc.Journal.Clear();
  desk.Pc.Journal.Only({"wav"});
  desk.Click("PrevKey");
  desk.Advance(5000);
  EXPECT_EQ(desk.Journal(),
            "0 wav refuse a.wav\n0 wav play welcome.wav\n3000 wav end welcome.wav\n");
}

/// On a desk that shows no zones, the file keeps its zones.
TEST(EditorFiles, ZonesOfAFilePassThroughADeskWithoutRouter) {
  EditorDesk desk({.Sequences = {{.Zones = "103056"}}, .Router = false});
  desk.Open("/app/spot.sch");
  EXPECT_FALSE(desk.Visible("frZones"));
  EXPECT_EQ(desk.Zones(), "1-1-11");
  desk.SaveAs(kFile);
  EXPECT_EQ(desk.Saved("Zone(s)"), "103056");
}

}  // namespace
}  // namespace marlex
