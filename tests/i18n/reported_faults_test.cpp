#include <gtest/gtest.h>

#include "desk/desk.h"
#include "i18n/with_texts.h"

namespace marlex {
namespace {

using Fault = std::function<void(SimulatedPc&)>;

/// The only box of a desk, in another language than English, that met a fault before its start.
struct ReportedAtTheStart {
  explicit ReportedAtTheStart(DeskOptions options, const Fault& fault = nullptr) {
    options.Language = "German";
    const Desk desk(options, fault);
    const auto& boxes = desk.Pc.Dialogs.Boxes;
    EXPECT_EQ(boxes.size(), 1u);
    if (boxes.empty()) return;
    Caption = boxes.front().Caption;
    Body = boxes.front().Body;
  }

  std::string Caption;
  std::string Body;
};

TEST(ReportedFaults, OfAMessageScheduleNameTheFileAndTheLimitThatItBreaks) {
  const ReportedAtTheStart reported({.Sequences = {{.File = "worse.sch", .Hours = "3-3"}}});
  EXPECT_EQ(reported.Caption, "Fehler");
  EXPECT_EQ(reported.Body,
            "Diese Ansagen-Zeitpläne können nicht verwendet werden:\r\nworse.sch: Hour(s): Mehr "
            "als 24 Stunden in einer Zeitangabe");
}

TEST(ReportedFaults, OfAnEditorAreInTheChosenLanguage) {
  Desk desk({.Language = "German"});
  desk.Click("mnuSchedule");
  desk.Click("cmdInterval");
  desk.Click("cmdOK");
  desk.Advance(0);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body, "Kein Intervall ausgewählt");
}

TEST(ReportedFaults, OfWeekdaysNameTheSchedule) {
  const ReportedAtTheStart reported(
      {.Sequences = {{.File = "a.sch", .Weekdays = "00"}, {.File = "b.sch"}}, .AllDays = true});
  EXPECT_EQ(reported.Body, "Bei diesen Ansagen-Zeitplänen sind die Wochentage unvollständig:\r\na");
}

TEST(ReportedFaults, OfAVolumeNameItsKey) {
  const ReportedAtTheStart reported({}, [](SimulatedPc& pc) {
    pc.Profiles.WriteString("Volume", "Music volume", "loud", Desk::kIni);
  });
  EXPECT_EQ(reported.Body,
            "Diese Lautstärken sind keine Zahlen und gelten als fehlend:\r\nMusic volume=loud");
}

TEST(ReportedFaults, OfThePortNameItAndWhatTheSystemSays) {
  const ReportedAtTheStart reported({}, [](SimulatedPc& pc) { pc.Serial.Unplug(); });
  EXPECT_EQ(reported.Body, "Der Com-Port lässt sich nicht öffnen:\r\nCOM1 cannot be opened.");
}

TEST(ReportedFaults, OfTheSettingsNameTheirFile) {
  Desk desk({.Language = "German"});
  desk.Pc.Disk.FailWrites("/app");
  desk.Click("cmdMusicZones_5");
  desk.Advance(0);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body,
            "Die Einstellungen können nicht gespeichert werden: /app/Tolvo.ini");
}

TEST(ReportedFaults, OfAPlaylistNameItsFile) {
  Desk desk({.Music = {{"march"}}, .Language = "German"});
  desk.Click("mnuPlaylist");
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  desk.Choose(editor.AvailMP3s, "march");
  desk.Pc.Disk.FailWrites("/app/new.lst");
  desk.Pc.Dialogs.OpenResults = {"/app/new.lst"};
  desk.Click(editor.mnuSave);
  desk.Advance(0);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
  EXPECT_EQ(desk.Pc.Dialogs.Boxes[0].Body, "Die Datei kann nicht gespeichert werden: /app/new.lst");
}

/// The box that leads to the settings names the button below it.
TEST(ReportedFaults, TheWordOnTheButtonOfABoxIsTheOneThatItsTextNames) {
  for (const auto& language : {"German", "Spanish", "Turkish", "Hebrew"}) {
    Desk desk({.Messages = {}, .Language = language});
    desk.Click("mnuSchedule");
    desk.Advance(0);
    ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1u);
    const std::string& ok = desk.Pc.Dialogs.FileTexts.Ok;
    EXPECT_EQ(ok, WithTexts(desk.Sys->Strings, "#1500"));
    EXPECT_NE(desk.Pc.Dialogs.Boxes[0].Body.find(ok), std::string::npos) << language;
  }
}

}  // namespace
}  // namespace marlex
