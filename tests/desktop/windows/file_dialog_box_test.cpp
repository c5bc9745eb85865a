#include "desktop/windows/file_dialog_box.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "desktop/windows/box_hand.h"
#include "desktop/windows/call_place.h"
#include "schedule/open_sequences.h"

namespace marlex {
namespace {

TEST(FileDialogBox, AFileDialogIsSetAsAsked) {
  Folder folder;
  QtEventLoop loop;
  EnglishBoxes dialogs(loop);
  WhenOpen<QFileDialog>([&](QFileDialog& box) {
    EXPECT_EQ(box.nameFilters(), QStringList("Schedules (*.sch)"));
    EXPECT_EQ(box.directory().path(), folder.Place.path());
    EXPECT_TRUE(box.testOption(QFileDialog::ReadOnly));
    box.reject();
  });
  EXPECT_EQ(Chosen(loop, dialogs, folder.Asked(true)), "");
}

TEST(FileDialogBox, ShowsNamesAlone) {
  TypingFolder folder;
  const QFileDialog& box = folder.Type("none", folder.Open());
  EXPECT_EQ(box.viewMode(), QFileDialog::List);
  for (const char* button : {"listModeButton", "detailModeButton", "newFolderButton"})
    EXPECT_FALSE(box.findChild<QWidget*>(button)->isVisible()) << button;
  const QList<QUrl> places{QUrl::fromLocalFile(folder.Place.path()),
                           QUrl::fromLocalFile(QDir::homePath())};
  EXPECT_EQ(box.sidebarUrls(), places);
}

TEST(FileDialogBox, ListsFoldersBeforeFiles) {
  TypingFolder folder;
  for (const char* name : {"winter", "autumn"}) QDir(folder.Place.path()).mkdir(name);
  const QFileDialog& box = folder.Type("none", folder.Open());
  const auto& list = *box.findChild<QListView*>("listView");
  const auto names = [&list] {
    QStringList shown;
    for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
      shown.append(list.model()->index(row, 0, list.rootIndex()).data().toString());
    return shown.join(' ').toStdString();
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return names() == "autumn winter a.sch b c.sch"; }, 2000))
      << names();
}

TEST(FileDialogBox, BeginsWithNothingToGoBackTo) {
  TypingFolder folder;
  const QFileDialog& box = folder.Type("none", folder.Open());
  EXPECT_FALSE(box.findChild<QWidget*>("backButton")->isEnabled());
}

TEST(FileDialogBox, NamesItsPartsInTheOperatorsLanguage) {
  for (const bool saves : {false, true}) {
    TypingFolder folder;
    FileDialogTexts& texts = folder.Dialogs.FileTexts;
    texts.Cancel = "Abbrechen";
    texts.Folder = "Ordner:";
    texts.FileName = "Name:";
    texts.FileType = "Typ:";
    texts.Open = "Öffnen";
    texts.Save = "Speichern";
    texts.Back = "Zurück";
    texts.Forward = "Vor";
    texts.ParentFolder = "Hinauf";
    const QFileDialog& box = folder.Type("\"\"", saves ? folder.Save("lst") : folder.Open());
    EXPECT_EQ(box.windowTitle(), saves ? "Speichern" : "Öffnen");
    EXPECT_EQ(box.labelText(QFileDialog::Accept), saves ? "Speichern" : "Öffnen");
    const auto& list = *box.findChild<QListView*>("listView");
    QDir(folder.Place.path()).mkdir("Winter");
    const auto winter = [&] {
      return list.model()->match(list.model()->index(0, 0, list.rootIndex()), Qt::DisplayRole,
                                 "Winter");
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !winter().isEmpty(); }));
    list.selectionModel()->select(winter().front(), QItemSelectionModel::ClearAndSelect);
    QApplication::processEvents();
    EXPECT_EQ(box.labelText(QFileDialog::Accept), saves ? "Speichern" : "Öffnen");
    EXPECT_EQ(box.labelText(QFileDialog::Reject), "Abbrechen");
    const auto save = saves ? QDialogButtonBox::Save : QDialogButtonBox::Open;
    EXPECT_EQ(box.findChild<QDialogButtonBox*>()->button(save)->property("face"), "primary");
    EXPECT_EQ(box.labelText(QFileDialog::LookIn), "Ordner:");
    EXPECT_EQ(box.labelText(QFileDialog::FileName), "Name:");
    EXPECT_EQ(box.labelText(QFileDialog::FileType), "Typ:");
    const std::map<const char*, const char*> tips{
        {"backButton", "Zurück"}, {"forwardButton", "Vor"}, {"toParentButton", "Hinauf"}};
    for (const auto& [button, tip] : tips) {
      EXPECT_EQ(box.findChild<QWidget*>(button)->toolTip(), tip);
      EXPECT_EQ(box.findChild<QWidget*>(button)->accessibleName(), tip);
    }
    const std::map<const char*, const char*> lists{
        {"sidebar", "Ordner:"}, {"listView", "Name:"}, {"olderNames", "Name:"}};
    for (const auto& [part, name] : lists)
      EXPECT_EQ(box.findChild<QWidget*>(part)->accessibleName(), name);
  }
}

TEST(FileDialogBox, OneFileComesBackAsItsPath) {
  Folder folder;
  QtEventLoop loop;
  EnglishBoxes dialogs(loop);
  WhenOpen<QFileDialog>([&](QFileDialog& box) { Choose(box, "b c.sch"); });
  EXPECT_EQ(Chosen(loop, dialogs, folder.Asked(false)),
            folder.Place.filePath("b c.sch").toStdString());
}

TEST(FileDialogBox, SeveralFilesComeBackAsDirectoryAndNames) {
  Folder folder;
  QtEventLoop loop;
  EnglishBoxes dialogs(loop);
  WhenOpen<QFileDialog>([&](QFileDialog& box) { Choose(box, "\"a.sch\" \"b c.sch\""); });
  EXPECT_EQ(Chosen(loop, dialogs, folder.Asked(true)),
            folder.Place.path().toStdString() + "/ a.sch b c.sch");
}

TEST(FileDialogBox, OneOfSeveralThatBeginsWithABlankComesBackAsAList) {
  Folder folder;
  QtEventLoop loop;
  EnglishBoxes dialogs(loop);
  QFile(folder.Place.filePath(" a.sch")).open(QIODevice::WriteOnly);
  WhenOpen<QFileDialog>([&](QFileDialog& box) { Choose(box, "\" a.sch\""); });
  const std::string result = Chosen(loop, dialogs, folder.Asked(true));
  EXPECT_EQ(result, folder.Place.path().toStdString() + "/  a.sch");
  const SequenceSelection selection = ParseSequenceSelection(result);
  EXPECT_EQ(selection.List, " a.sch");
}

TEST(FileDialogBox, ANameThatIsSavedWithoutAnExtensionGetsTheDefaultOne) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("day", folder.Save("seq")), "day.seq");
  EXPECT_EQ(folder.Typed("day", folder.Save("lst")), "day.lst");
  EXPECT_EQ(folder.Typed("late show", folder.Save("seq")), "late show.seq");
  EXPECT_EQ(folder.Typed("Λίστα", folder.Save("lst")), "Λίστα.lst");
  EXPECT_EQ(folder.Typed("day", folder.Save("")), "day");
}

TEST(FileDialogBox, ANameThatIsSavedWithAnExtensionKeepsIt) {
  TypingFolder folder;
  for (const char* name : {"day.sch", "day.seq", "DAY.SCH", "Day.Seq", "day.two.sch"})
    EXPECT_EQ(folder.Typed(name, folder.Save("seq")), name);
}

TEST(FileDialogBox, APointInANameThatIsSavedIsNoExtension) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("Vol. 2", folder.Save("lst")), "Vol. 2.lst");
  EXPECT_EQ(folder.Typed("no.1", folder.Save("seq")), "no.1.seq");
  EXPECT_EQ(folder.Typed("a.sch.old", folder.Save("seq")), "a.sch.old.seq");
  EXPECT_EQ(folder.Typed("Vol. 2", folder.Save("")), "Vol. 2");
  const QString whole = folder.Place.filePath("Vol. 3");
  EXPECT_EQ(folder.Typed(whole, folder.Save("lst")), "Vol. 3.lst");
}

TEST(FileDialogBox, QuotesAroundANameThatIsSavedComeOff) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("\"Vol. 2\"", folder.Save("lst")), "Vol. 2.lst");
  EXPECT_EQ(folder.Typed("\"day.sch\"", folder.Save("seq")), "day.sch");
  EXPECT_EQ(folder.Typed("\"late show\"", folder.Save("")), "late show");
  EXPECT_EQ(folder.Typed("\"A.SCH\"", folder.Save("sch")),
            "? a.sch\nThe file already exists. Replace it?");
}

TEST(FileDialogBox, QuotesInsideANameAreOfTheName) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("12\" mixes", folder.Save("lst")), "12\" mixes.lst");
  EXPECT_EQ(folder.Typed("\"Best\" of \"Vol. 2\"", folder.Save("lst")), "Best\" of \"Vol. 2.lst");
  folder.Make("12\" mixes.sch");
  EXPECT_EQ(folder.Typed("12\" mixes.sch", folder.Open()), "12\" mixes.sch");
}

TEST(FileDialogBox, TwoQuotesAloneAreNoName) {
  TypingFolder folder;
  QFileDialog& box = folder.Type("\"\"", folder.Save("lst"));
  EXPECT_TRUE(box.isVisible());
  EXPECT_TRUE(OpenDialogs<QMessageBox>().isEmpty());
}

TEST(FileDialogBox, AFolderThatIsTypedIsEnteredAndNoName) {
  for (const char* typed : {"Vol. 2", "VOL. 2", "\"Vol. 2\"", "Vol. 2/"}) {
    TypingFolder folder;
    ASSERT_TRUE(QDir(folder.Place.path()).mkdir("Vol. 2"));
    QFileDialog& box = folder.Type(typed, folder.Save("lst"));
    EXPECT_EQ(box.directory().dirName(), "Vol. 2") << typed;
    Choose(box, "b");
    EXPECT_EQ(folder.Chosen(), "b.lst");
    EXPECT_EQ(folder.Result, folder.Place.filePath("Vol. 2/b.lst").toStdString());
  }
}

TEST(FileDialogBox, TwoPointsLeadToTheFolderAbove) {
  TypingFolder folder;
  QFileDialog& box = folder.Type("..", folder.Open());
  EXPECT_EQ(box.directory().path(), QFileInfo(folder.Place.path()).path());
}

TEST(FileDialogBox, ANameOpenedWithoutAnExtensionIsSoughtWithTheDefaultOne) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("a", folder.Asked(false)), "a.sch");
}

TEST(FileDialogBox, ANameThatIsOpenedIsFoundInAnyCase) {
  TypingFolder folder;
  for (const char* typed : {"A.SCH", "a.Sch", "A", "\"A.SCH\""})
    EXPECT_EQ(folder.Typed(typed, folder.Open()), "a.sch") << typed;
  folder.Type("\"A.SCH\" \"B C.sch\"", folder.Open(true));
  folder.Chosen();
  EXPECT_EQ(folder.Result, folder.Place.path().toStdString() + "/ a.sch b c.sch");
  folder.Make("A.sch");
  EXPECT_EQ(folder.Typed("A.sch", folder.Open()), "A.sch") << "the exact one wins";
}

TEST(FileDialogBox, APointInANameThatIsOpenedIsNoExtension) {
  TypingFolder folder;
  folder.Make("Vol. 2.sch");
  EXPECT_EQ(folder.Typed("vol. 2", folder.Open()), "Vol. 2.sch");
}

TEST(FileDialogBox, AFileThatIsNotThereIsNotOpened) {
  TypingFolder folder;
  for (const char* typed : {"c.sch", "c", "no such folder/a.sch"}) {
    QFileDialog& box = folder.Type(typed, folder.Open());
    EXPECT_EQ(WithoutMarks(OpenQuestion().text()), QString(typed) + "\nFile not found");
    EXPECT_EQ(OpenQuestion().windowTitle(), "Warning");
    Answer(OpenQuestion(), "OK");
    EXPECT_TRUE(box.isVisible());
    Choose(box, "a.sch");
    EXPECT_EQ(folder.Chosen(), "a.sch");
  }
  folder.Type("\"a.sch\" \"c.sch\"", folder.Open(true));
  EXPECT_EQ(OpenQuestion().text(), "c.sch\nFile not found");
}

TEST(FileDialogBox, TheNameOfAFileThatExistsIsTakenAfterAQuestion) {
  TypingFolder folder;
  const std::string question = "? a.sch\nThe file already exists. Replace it?";
  EXPECT_EQ(folder.Typed("a", folder.Save("sch")), question);
  Answer(OpenQuestion(), "Replace");
  EXPECT_EQ(folder.Chosen(), "a.sch");
  QFileDialog& box = folder.Type("a.sch", folder.Save("sch"));
  EXPECT_EQ(folder.Chosen(), question);
  Answer(OpenQuestion(), "Cancel");
  EXPECT_TRUE(box.isVisible());
  EXPECT_FALSE(folder.Result);
  Choose(box, "b.sch");
  EXPECT_EQ(folder.Chosen(), "b.sch");
}

TEST(FileDialogBox, AQuestionThatIsLeftReplacesNothing) {
  TypingFolder folder;
  QFileDialog& box = folder.Type("a.sch", folder.Save("sch"));
  EXPECT_EQ(OpenQuestion().defaultButton()->text(), "Cancel");
  QTest::keyClick(&OpenQuestion(), Qt::Key_Escape);
  EXPECT_TRUE(OpenDialogs<QMessageBox>().isEmpty());
  EXPECT_TRUE(box.isVisible());
  EXPECT_FALSE(folder.Result);
}

/// "München", as a desk of code page 1252 wrote it.
constexpr const char* kOldName = "M\xFCnchen.sch";

TEST(FileDialogBox, ANameIsThatOfTheFileThatItFinds) {
  struct Row {
    const char* File;
    const char* Typed;
    std::string Found;
  };
  for (const Row& row : {Row{"Vol. 2.sch", "Vol. 2", "Vol. 2.sch"},   // by the extension
                         Row{"a.sch", "A.SCH", "a.sch"},              // in another case
                         Row{kOldName, "münchen", "München.sch"}}) {  // in a code page
    TypingFolder folder;
    folder.Make(row.File);
    EXPECT_EQ(folder.Typed(row.Typed, folder.Save("sch")),
              "? " + row.Found + "\nThe file already exists. Replace it?");
    Answer(OpenQuestion(), "Replace");
    EXPECT_EQ(folder.Chosen(), row.Found);
  }
}

TEST(FileDialogBox, ANameInACodePageIsOpenedAsItIsTyped) {
  TypingFolder folder;
  folder.Make(kOldName);
  EXPECT_EQ(folder.Typed("münchen", folder.Open()), "München.sch");
  ASSERT_EQ(::mkdir((folder.Place.path().toStdString() + "/M\xFCnchen").c_str(), 0700), 0);
  EXPECT_EQ(folder.Typed("münchen/day.sch", folder.Open()), "? münchen/day.sch\nFile not found");
  Answer(OpenQuestion(), "OK");
  folder.Make("M\xFCnchen/Day.sch");
  Choose(*OpenDialogs<QFileDialog>().front(), "münchen/day.sch");
  EXPECT_EQ(folder.Chosen(), "Day.sch");
  EXPECT_TRUE(folder.Dialogs.Disk.Search(*folder.Result) == "Day.sch") << *folder.Result;
}

QStringList NamesIn(const QListWidget& list) {
  QStringList names;
  for (int row = 0; row < list.count(); ++row) names += list.item(row)->text();
  return names;
}

TEST(FileDialogBox, NamesInACodePageAreListedAndPicked) {
  TypingFolder folder;
  folder.Make(kOldName);
  folder.Make("M\xFCnchen.txt");
  QFileDialog& box = folder.Type("", folder.Open());
  auto& list = *box.findChild<QListWidget*>("olderNames");
  EXPECT_TRUE(list.isVisible());
  ASSERT_EQ(NamesIn(list), QStringList("München.sch"));
  const QPoint name = list.visualItemRect(list.item(0)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, name);
  EXPECT_EQ(box.findChild<QLineEdit*>("fileNameEdit")->text(), "München.sch");
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(folder.Chosen(), "München.sch");
}

TEST(FileDialogBox, SeveralNamesInACodePageArePickedTogether) {
  TypingFolder folder;
  folder.Make(kOldName);
  folder.Make("\xC4rger.sch");
  QFileDialog& box = folder.Type("", folder.Open(true));
  auto& list = *box.findChild<QListWidget*>("olderNames");
  list.selectAll();
  static_cast<QDialog&>(box)
      .findChild<QDialogButtonBox*>()
      ->button(QDialogButtonBox::Open)
      ->click();
  folder.Chosen();
  const QString place = folder.Place.path();
  EXPECT_EQ(folder.Result, (place + "/ München.sch Ärger.sch").toStdString());
}

TEST(FileDialogBox, TheListOfNamesInACodePageIsThatOfTheFolder) {
  TypingFolder folder;
  ASSERT_TRUE(QDir(folder.Place.path()).mkdir("older"));
  folder.Make("older/M\xFCnchen.sch");
  QFileDialog& box = folder.Type("", folder.Open());
  auto& list = *box.findChild<QListWidget*>("olderNames");
  EXPECT_FALSE(list.isVisible());
  Choose(box, "older");
  EXPECT_TRUE(list.isVisible());
  EXPECT_EQ(NamesIn(list), QStringList("München.sch"));
  Choose(box, "..");
  EXPECT_FALSE(list.isVisible());
}

TEST(FileDialogBox, APlaceThatHasGoneIsReported) {
  TypingFolder folder;
  ASSERT_TRUE(QDir(folder.Place.path()).mkdir("stick"));
  QFileDialog& box = folder.Type("stick", folder.Open());
  ASSERT_TRUE(QDir(folder.Place.path()).rmdir("stick"));
  auto& places = *box.findChild<QComboBox*>("lookInCombo");
  places.showPopup();
  places.hidePopup();
  emit places.textActivated(places.currentText());
  EXPECT_EQ(WithoutMarks(OpenQuestion().text()),
            folder.Place.filePath("stick") + "\nFile not found");
  EXPECT_EQ(OpenQuestion().windowModality(), Qt::WindowModal);
}

TEST(FileDialogBox, APlaceThatIsChosenIsEntered) {
  TypingFolder folder;
  ASSERT_TRUE(QDir(folder.Place.path()).mkdir("stick"));
  QFileDialog& box = folder.Type("stick", folder.Open());
  auto& places = *box.findChild<QComboBox*>("lookInCombo");
  places.showPopup();
  places.setCurrentIndex(1);  // the places are listed from the innermost to the outermost
  places.hidePopup();
  emit places.textActivated(places.currentText());
  EXPECT_EQ(box.directory().path(), folder.Place.path());
}

TEST(FileDialogBox, ARightClickOpensNoMenuInWhichTheProgramWaits) {
  TypingFolder folder;
  QFileDialog& box = folder.Type("", folder.Open());
  int menus = 0;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&menus] {
    if (QWidget* menu = QApplication::activePopupWidget()) {
      ++menus;
      menu->close();
    }
  });
  look.start(1);
  for (QAbstractScrollArea* part : box.findChildren<QAbstractScrollArea*>()) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, part->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(part->viewport(), &event);
    QTest::qWait(5);
  }
  EXPECT_EQ(menus, 0);
}

TEST(FileDialogBox, NamesWithALineEndAreNotOffered) {
  TypingFolder folder;
  folder.Make("two\nlines.sch");
  ASSERT_TRUE(QDir(folder.Place.path()).mkdir("zone"));
  const QStringList offered{"zone", "a.sch", "b c.sch"};  // directories come first
  QStringList names;
  WhenOpen<QFileDialog>([&](QFileDialog& box) {
    const auto* list = box.findChild<QListView*>("listView");
    QElapsedTimer waited;
    waited.start();
    while (names != offered && waited.elapsed() < 30'000) {
      QApplication::processEvents();
      names.clear();
      for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        names += list->model()->index(row, 0, list->rootIndex()).data().toString();
    }
    box.reject();
  });
  Chosen(folder.Loop, folder.Dialogs, folder.Asked(true));
  EXPECT_EQ(names, offered);
}

TEST(FileDialogBox, FileDialogsWriteNothingIntoTheOperatorsConfiguration) {
  TypingFolder folder;
  QPointer<QFileDialog> dialog;
  WhenOpen<QFileDialog>([&](QFileDialog& box) {
    dialog = &box;
    Choose(box, "a.sch");
  });
  Chosen(folder.Loop, folder.Dialogs, folder.Asked(true));
  folder.Loop.PumpUntil([&] { return dialog.isNull(); });  // its destructor saves its looks
  const QDir configuration(qEnvironmentVariable("XDG_CONFIG_HOME"));
  EXPECT_TRUE(configuration.exists());
  EXPECT_EQ(configuration.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

TEST(FileDialogBox, ASaveDialogThatIsLeftGivesNoName) {
  TypingFolder folder;
  WhenOpen<QFileDialog>([](QFileDialog& box) {
    EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(box.fileMode(), QFileDialog::AnyFile);
    box.findChild<QLineEdit*>("fileNameEdit")->setText("day");
    box.reject();
  });
  EXPECT_EQ(Chosen(folder.Loop, folder.Dialogs, folder.Save("seq")), "");
}

}  // namespace
}  // namespace marlex
