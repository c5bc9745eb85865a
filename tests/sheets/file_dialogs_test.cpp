#include <gtest/gtest.h>

#include <QtWidgets>

#include "desktop/files/temporary_directory.h"
#include "desktop/windows/qt_dialogs.h"
#include "desktop/windows/theme.h"
#include "screen/measure.h"
#include "sheets/looks.h"
#include "sheets/scenes.h"

namespace marlex {
namespace {

/// The dialogs of an operator who opens a playlist and several schedules, and saves a playlist.
std::vector<FileDialog> AskedFor(Desk& desk) {
  desk.Click("mnuOpen");
  desk.Click("mnuSequence");
  desk.Click("mnuPlaylist");
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  desk.Choose(editor.AvailMP3s, "Blue tram");
  desk.Click(editor.mnuSave);
  desk.Advance(0);
  return desk.Pc.Dialogs.FileDialogs;
}

/// A folder with some files of each kind, and some names in the code page of an older PC.
class Folder {
 public:
  explicit Folder(MemoryDisk& disk) {
    for (const char* file : {"Day.lst", "Evening.lst", "Morning.sch", "Offers.sch", "Closing.sch"})
      Place.Write(file, "");
    for (const char* file : {"Fr\xC3\xBChling.lst", "Fr\xC3\xBChling.sch"})
      disk.AddFile(Place.Path(file));
    QDir(QString::fromStdString(Place.Path())).mkdir("Winter");
  }
  std::string Path() const { return Place.Path(); }

 private:
  test::TemporaryDirectory Place;
};

/// The file dialog in front, once it has read its folder and sorted it: folders come first.
QFileDialog* ReadyDialog() {
  QElapsedTimer waited;
  waited.start();
  while (waited.elapsed() < 5000) {
    QApplication::processEvents();
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeWindow());
    if (!dialog) continue;
    const auto* list = dialog->findChild<QListView*>("listView");
    if (list->model()->index(0, 0, list->rootIndex()).data() == "Winter") return dialog;
  }
  return nullptr;
}

/// Opens each dialog.
void PaintDialogs(const char* language, Sheet& sheet) {
  SCOPED_TRACE(language);
  const Theme theme(*qApp);
  VirtualLoop loop;
  MemoryDisk disk;
  const Folder folder(disk);
  QtDialogs dialogs(loop, disk);
  DeskOptions shop = Shop();
  shop.Language = language;
  Desk desk(shop);
  const std::vector<FileDialog> asked = AskedFor(desk);
  EXPECT_EQ(asked.size(), 3u);
  dialogs.FileTexts = desk.Pc.Dialogs.FileTexts;
  for (FileDialog dialog : asked) {
    dialog.InitialDirectory = folder.Path();
    dialogs.LeaveOpen(dialog, [](const std::string&) {});
    QFileDialog* shown = ReadyDialog();
    ASSERT_TRUE(shown);
    ExpectNothingClipped(*shown);
    sheet.Add(shown->windowTitle(), shown->grab());
    shown->close();
    QApplication::processEvents();
    loop.Pump();
  }
}

TEST(FileDialogs, AreWholeInEveryLanguage) { PaintInEveryLanguage(PaintDialogs, "file_dialogs"); }

TEST(FileDialogs, AreWholeInTheDark) { PaintInTheDark(PaintDialogs, "file_dialogs"); }

}  // namespace
}  // namespace marlex
