#include <gtest/gtest.h>

#include <QtWidgets>

#include "desktop/windows/qt_dialogs.h"
#include "desktop/windows/shown_body.h"
#include "desktop/windows/shown_text.h"
#include "desktop/windows/theme.h"
#include "screen/measure.h"
#include "screen/painted_texts.h"
#include "sheets/looks.h"
#include "sheets/scenes.h"

namespace marlex {
namespace {

using Box = SimulatedDialogs::MessageBox;

constexpr const char* kGone = "/home/operator/Music/Background/Autumn and winter/Quiet evenings/";

void LoseTheDirectories(Desk& desk) {
  desk.Do([&desk] { desk.Values().MusicDirectory = desk.Values().MessageDirectory = kGone; });
  for (const char* control : {"cmdPlay", "mnuPlaylist", "mnuSchedule"}) desk.Click(control);
}

void EmptyTheSettings(Desk& desk) {
  desk.Click("mnuSettings");
  FrmSettings& settings = desk.Sys->TheWindows.frmSettings;
  for (Label* directory : {&settings.lblMsgDir_Name, &settings.lblBGDir_Name}) {
    desk.Do([directory] { directory->Caption = ""; });
    desk.Click(settings.cmdOK);
  }
}

/// Saves what is in the schedule editor, one fault after the other.
void MistakeTheTimes(Desk& desk) {
  desk.Click("mnuSchedule");
  WavWindow& editor = desk.Sys->TheWindows.TheWavWindow;
  const auto save = [&](const char* hours, const char* minutes) {
    desk.Do([&] {
      editor.txtHours.Text = hours;
      editor.txtMinutes.Text = minutes;
    });
    desk.Click(editor.mnuSave);
  };
  save("", "");
  save("9", "");
  save("9", "00");
  desk.Choose(editor.AvailWavs, "gong");
  save("9", "00");
  desk.Click("WkDays_0");
  save("nine", "00");
  save("25", "00");
  save("9", "two");
  save("9", "61");
  desk.Pc.Disk.FailWrites("/app/Day.sch");
  desk.Pc.Dialogs.OpenResults = {"/app/Day.sch"};
  save("9", "00");
}

/// The same in the playlist editor.
void MistakeThePlaylist(Desk& desk) {
  desk.Click("mnuPlaylist");
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  const auto save = [&] {
    desk.Pc.Dialogs.OpenResults = {"/app/Evening.lst"};
    desk.Click(editor.mnuSave);
    desk.Advance(0);
  };
  save();
  desk.Choose(editor.AvailMP3s, "Blue tram");
  desk.Click("optScheduled_0");
  const std::vector<ComboBox*> times = {&editor.cmbStartHours, &editor.cmbStartMinutes,
                                        &editor.cmbStopHours, &editor.cmbStopMinutes};
  for (ComboBox* missing : times) {
    for (ComboBox* time : times) desk.Choose(*time, "00");
    desk.Do([missing] { missing->SetListIndex(ListBox::kNoSelection); });
    save();
  }
  desk.Pc.Disk.FailWrites("/app/Evening.lst");
  save();
}

void LoseTheSettings(Desk& desk) {
  desk.Pc.Disk.FailWrites("/app");
  desk.Click("cmdMusicZones_5");
  desk.Advance(0);
}

using Fault = std::function<void(SimulatedPc&)>;

/// Faults of the PC that the program meets at its start.
std::vector<Fault> FaultsAtTheStart() {
  return {[](SimulatedPc& pc) { pc.Mixer.Devices.clear(); },
          [](SimulatedPc& pc) { pc.Mixer.OpenResult = kMixerNoError + 1; },
          [](SimulatedPc& pc) { pc.Mixer.CapsResult = kMixerNoError + 1; },
          [](SimulatedPc& pc) { pc.Process.OtherWindows.insert(FrmMain::kCaption); },
          [](SimulatedPc& pc) { pc.Serial.Device = 7; },
          [](SimulatedPc& pc) {
            pc.Profiles.WriteString("Volume", "Music volume", "loud", Desk::kIni);
          }};
}

/// The boxes that the system shows when `provoke` is done after its start, or when a fault occurred
/// before it.
void Listen(const DeskOptions& options, const Fault& fault,
            const std::function<void(Desk&)>& provoke, std::vector<Box>& heard) {
  Desk desk(options, fault);
  if (provoke) provoke(desk);
  for (const Box& box : desk.Pc.Dialogs.Boxes) heard.push_back(box);
}

std::vector<Box> AllReports(const char* language) {
  DeskOptions shop = Shop();
  shop.Language = language;
  std::vector<Box> reports;
  for (const auto& provoke :
       {LoseTheDirectories, EmptyTheSettings, MistakeTheTimes, MistakeThePlaylist, LoseTheSettings})
    Listen(shop, nullptr, provoke, reports);
  Listen(
      shop, nullptr, [](Desk& desk) { desk.Click("mnuAdresses"); }, reports);
  for (const Fault& fault : FaultsAtTheStart()) Listen(shop, fault, nullptr, reports);
  shop.AllDays = true;
  shop.Sequences.push_back({.File = "Broken.sch", .Hours = "-7"});
  shop.Sequences.push_back(
      {.File = "Short week.sch", .Hours = "12", .Minutes = "21", .Weekdays = "00"});
  Listen(shop, nullptr, nullptr, reports);
  return reports;
}

/// The painted lines of a label, from top to bottom.
QStringList LinesOf(QWidget& label) {
  QStringList lines;
  QRectF last;
  for (const auto& [text, place] : PaintedTexts::Of(label)) {
    const bool isBelow = lines.isEmpty() || place.top() > last.center().y();
    if (isBelow) lines.append("");
    lines.back() += ' ' + WithoutMarks(text).trimmed();
    last = place;
  }
  for (QString& line : lines) line = line.trimmed();
  return lines;
}

/// A paragraph of several words never ends on a line with its last word alone. The dense screen of
/// the tests is 400 pixels wide, where two words may be too long for a line.
void ExpectNoWordAlone(QMessageBox& box) {
  if (IsDense()) return;
  const QStringList paragraphs = WithoutMarks(box.text()).split('\n');
  for (const QString& line : LinesOf(*box.findChild<QLabel*>("qt_msgbox_label"))) {
    if (line.contains(' ') || line.contains('/')) continue;
    for (const QString& paragraph : paragraphs)
      EXPECT_FALSE(paragraph.endsWith(' ' + line)) << line.toStdString();
  }
}

/// Shows every report, one after the other.
void PaintReports(const char* language, Sheet& sheet) {
  const Theme theme(*qApp);
  VirtualLoop loop;
  const MemoryDisk disk;
  QtDialogs dialogs(loop, disk);
  DeskOptions shop = Shop();
  shop.Language = language;
  dialogs.FileTexts = Desk(shop).Pc.Dialogs.FileTexts;
  const std::vector<Box> reports = AllReports(language);
  EXPECT_EQ(reports.size(), 30u) << language;
  for (const Box& box : reports) {
    SCOPED_TRACE(std::string(language) + ": " + box.Body);
    dialogs.LeaveMsgBox(box.Body, box.Icon, box.Caption);
    QApplication::processEvents();
    auto* shown = qobject_cast<QMessageBox*>(QApplication::activeWindow());
    ASSERT_TRUE(shown);
    EXPECT_EQ(WithoutMarks(shown->text()).toStdString(), ShownText(box.Body).toStdString());
    ExpectNothingClipped(*shown);
    ExpectNoWordAlone(*shown);
    sheet.Add(shown->windowTitle(), shown->grab());
    shown->close();
  }
}

TEST(Boxes, ShowEveryReportWholeInEveryLanguage) { PaintInEveryLanguage(PaintReports, "boxes"); }

TEST(Boxes, ShowEveryReportWholeInTheDark) { PaintInTheDark(PaintReports, "boxes"); }

/// Types the name into the open file dialog and presses its button.
void TypeName(const QString& name, QDialogButtonBox::StandardButton button) {
  QApplication::processEvents();
  auto* dialog = qobject_cast<QDialog*>(QApplication::activeWindow());
  ASSERT_TRUE(dialog);
  dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
  dialog->findChild<QDialogButtonBox*>()->button(button)->click();
  QApplication::processEvents();
}

/// Asks about a file that is to be opened and is missing, and about one that would be replaced.
void PaintQuestions(const char* language, Sheet& sheet) {
  SCOPED_TRACE(language);
  const Theme theme(*qApp);
  VirtualLoop loop;
  MemoryDisk disk;
  disk.AddFile("/app/Day.sch");
  QtDialogs dialogs(loop, disk);
  DeskOptions shop = Shop();
  shop.Language = language;
  dialogs.FileTexts = Desk(shop).Pc.Dialogs.FileTexts;
  for (const bool saves : {false, true}) {
    dialogs.LeaveOpen({"Schedules (*.sch)|*.sch", "sch", "/", false, saves},
                      [](const std::string&) {});
    saves ? TypeName("/app/Day.sch", QDialogButtonBox::Save)
          : TypeName("/app/Night.sch", QDialogButtonBox::Open);
    auto* question = qobject_cast<QMessageBox*>(QApplication::activeWindow());
    ASSERT_TRUE(question);
    ExpectNothingClipped(*question);
    sheet.Add(WithoutMarks(question->text()).section('\n', 0, 0), question->grab());
    QPointer<QWidget> dialog = question->parentWidget();
    question->close();
    dialog->close();
    loop.Pump();
  }
}

TEST(Boxes, AskAboutFilesWholeInEveryLanguage) {
  PaintInEveryLanguage(PaintQuestions, "file_questions");
}

TEST(Boxes, AskAboutFilesWholeInTheDark) { PaintInTheDark(PaintQuestions, "file_questions"); }

}  // namespace
}  // namespace marlex
