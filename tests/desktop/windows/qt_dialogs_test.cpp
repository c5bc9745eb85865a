#include "desktop/windows/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <optional>

#include "desktop/process/qt_event_loop.h"
#include "desktop/windows/desk.h"
#include "desktop/windows/finger.h"
#include "places.h"

namespace marlex {
namespace {

/// The dialog that a hand meets: the one that blocks others, else the one in front.
QWidget* DialogInFront() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return qobject_cast<QDialog*>(QApplication::activeWindow());
}

/// The dialogs of type T that can be seen.
template <class T>
QList<T*> Standing() {
  QList<T*> standing;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* dialog = qobject_cast<T*>(window);
    if (dialog && dialog->isVisible()) standing.append(dialog);
  }
  return standing;
}

/// Does `action` with the next dialog of type T that opens.
template <class T>
void WhenOpen(std::function<void(T&)> action) {
  auto* watch = new QTimer(qApp);
  QObject::connect(watch, &QTimer::timeout, [watch, action] {
    auto* box = qobject_cast<T*>(DialogInFront());
    if (!box || !box->isVisible()) return;
    watch->deleteLater();
    watch->stop();
    action(*box);
  });
  watch->start(1);
}

TEST(QtDialogs, AMessageBoxShowsItsTextsAndIcon) {
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  QString seen;
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    EXPECT_EQ(box.objectName(), "messageBox");
    EXPECT_EQ(box.windowTitle(), "Problem");
    seen = box.text();
    box.accept();
  });
  dialogs.MsgBox("<b>Cannot</b> find\rC:\\Music\\\r\nClick & go", BoxIcon::Critical, "Problem");
  EXPECT_EQ(seen, "<b>Cannot</b> find\nC:\\Music\\\nClick & go");
}

TEST(QtDialogs, TimersGoOnUnderABox) {
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  int ticks = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (++ticks == 3) QApplication::activeModalWidget()->close();
  });
  timer.start(1);
  dialogs.MsgBox("Waiting", BoxIcon::Information, "Info");
  EXPECT_GE(ticks, 3);
}

TEST(QtDialogs, ABoxThatIsLeftStandsUntilItIsAnsweredAndHoldsNobodyUp) {
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  dialogs.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  ASSERT_EQ(Standing<QMessageBox>().size(), 1);
  QMessageBox& box = *Standing<QMessageBox>().front();
  EXPECT_EQ(box.text(), "No paper");
  dialogs.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  EXPECT_EQ(Standing<QMessageBox>(), QList<QMessageBox*>{&box});
  box.accept();
  EXPECT_TRUE(Standing<QMessageBox>().isEmpty());
  dialogs.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  ASSERT_EQ(Standing<QMessageBox>().size(), 1);
  Standing<QMessageBox>().front()->close();
}

TEST(QtDialogs, AnotherBoxMayStandOnTheFirst) {
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  std::string story;
  WhenOpen<QMessageBox>([&](QMessageBox& first) {
    WhenOpen<QMessageBox>([&](QMessageBox& second) {
      EXPECT_EQ(second.text(), "two");
      EXPECT_TRUE(first.isVisible());
      second.accept();
    });
    dialogs.MsgBox("two", BoxIcon::Information, "");
    dialogs.MsgBox("one", BoxIcon::Information, "");  // open already
    story += "two, ";
    first.accept();
  });
  dialogs.MsgBox("one", BoxIcon::Information, "");
  EXPECT_EQ(story + "one", "two, one");
}

struct Folder {
  Folder() {
    for (const char* name : {"a.sch", "b c.sch", "other.txt"}) {
      QFile file(Place.filePath(name));
      EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
  }
  FileDialog Asked(bool many) const {
    return {"Schedules (*.sch)|*.sch", "sch", Place.path().toStdString() + "/", many};
  }
  QTemporaryDir Place;
};

/// What comes of a file dialog that is answered by `WhenOpen`.
std::string Chosen(QtEventLoop& loop, QtDialogs& dialogs, const FileDialog& dialog) {
  std::optional<std::string> chosen;
  dialogs.LeaveOpen(dialog, [&](const std::string& result) { chosen = result; });
  EXPECT_FALSE(chosen);  // nobody was held up
  loop.PumpUntil([&] { return chosen.has_value(); });
  return *chosen;
}

TEST(QtDialogs, AFileDialogIsSetAsAsked) {
  Folder folder;
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  WhenOpen<QFileDialog>([&](QFileDialog& box) {
    EXPECT_EQ(box.nameFilters(), QStringList("Schedules (*.sch)"));
    EXPECT_EQ(box.defaultSuffix(), "sch");
    EXPECT_EQ(box.directory().path(), folder.Place.path());
    EXPECT_TRUE(box.testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_TRUE(box.testOption(QFileDialog::ReadOnly));
    box.reject();
  });
  EXPECT_EQ(Chosen(loop, dialogs, folder.Asked(true)), "");
}

void Choose(QFileDialog& box, const QString& names) {
  const bool saves = box.acceptMode() == QFileDialog::AcceptSave;
  box.findChild<QLineEdit*>("fileNameEdit")->setText(names);
  static_cast<QDialog&>(box)
      .findChild<QDialogButtonBox*>()
      ->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open)
      ->click();
}

TEST(QtDialogs, OnlyOneFileDialogStandsAtATime) {
  Folder folder;
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  std::string story;
  dialogs.LeaveOpen(folder.Asked(true), [&](const std::string&) { story += "first "; });
  const auto first = Standing<QFileDialog>();
  ASSERT_EQ(first.size(), 1);
  dialogs.LeaveOpen(folder.Asked(true), [&](const std::string&) { story += "second "; });
  EXPECT_EQ(Standing<QFileDialog>(), first);
  first.front()->close();
  loop.PumpUntil([&] { return !story.empty(); });
  EXPECT_EQ(story, "first ");
  dialogs.LeaveOpen(folder.Asked(true), [&](const std::string&) { story += "third"; });
  Standing<QFileDialog>().front()->close();
  loop.PumpUntil([&] { return story != "first "; });
  EXPECT_EQ(story, "first third");
}

TEST(QtDialogs, OneFileComesBackAsItsPath) {
  Folder folder;
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  WhenOpen<QFileDialog>([&](QFileDialog& box) { Choose(box, "b c.sch"); });
  EXPECT_EQ(Chosen(loop, dialogs, folder.Asked(false)),
            folder.Place.filePath("b c.sch").toStdString());
}

TEST(QtDialogs, SeveralFilesComeBackAsDirectoryAndNames) {
  Folder folder;
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  WhenOpen<QFileDialog>([&](QFileDialog& box) { Choose(box, "\"a.sch\" \"b c.sch\""); });
  EXPECT_EQ(Chosen(loop, dialogs, folder.Asked(true)),
            folder.Place.path().toStdString() + "/ a.sch b c.sch");
}

/// A folder with an operator who types names into its file dialogs.
struct TypingFolder : Folder {
  /// Name of the file that comes of a typed name; empty when the dialog was left without one.
  std::string Typed(const QString& name, const FileDialog& dialog) {
    WhenOpen<QFileDialog>([&](QFileDialog& box) { Choose(box, name); });
    return QFileInfo(QString::fromStdString(Chosen(Loop, Dialogs, dialog)))
        .fileName()
        .toStdString();
  }
  FileDialog Save(const std::string& extension) const {
    FileDialog dialog = Asked(false);
    dialog.DefaultExtension = extension;
    dialog.Save = true;
    return dialog;
  }

  QtEventLoop Loop;
  QtDialogs Dialogs{Loop};
};

TEST(QtDialogs, ANameThatIsSavedWithoutAnExtensionGetsTheDefaultOne) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("day", folder.Save("seq")), "day.seq");
  EXPECT_EQ(folder.Typed("day", folder.Save("lst")), "day.lst");
  EXPECT_EQ(folder.Typed("late show", folder.Save("seq")), "late show.seq");
  EXPECT_EQ(folder.Typed("Λίστα", folder.Save("lst")), "Λίστα.lst");
  EXPECT_EQ(folder.Typed("day", folder.Save("")), "day");
}

TEST(QtDialogs, ANameThatIsSavedWithAnExtensionKeepsIt) {
  TypingFolder folder;
  for (const char* name : {"day.sch", "day.seq", "DAY.SCH", "Day.Seq", "day.two.sch"})
    EXPECT_EQ(folder.Typed(name, folder.Save("seq")), name);
}

TEST(QtDialogs, APointInANameThatIsSavedIsNoExtension) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("Vol. 2", folder.Save("lst")), "Vol. 2.lst");
  EXPECT_EQ(folder.Typed("no.1", folder.Save("seq")), "no.1.seq");
  EXPECT_EQ(folder.Typed("a.sch.old", folder.Save("seq")), "a.sch.old.seq");
  EXPECT_EQ(folder.Typed("Vol. 2", folder.Save("")), "Vol. 2");
  const QString whole = folder.Place.filePath("Vol. 3");
  EXPECT_EQ(folder.Typed(whole, folder.Save("lst")), "Vol. 3.lst");
}

TEST(QtDialogs, AFileThatTheExtensionMakesOfANameIsTakenAfterAQuestion) {
  TypingFolder folder;
  QFile file(folder.Place.filePath("Vol. 2.sch"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  int questions = 0;
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    ++questions;
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(folder.Typed("Vol. 2", folder.Save("sch")), "Vol. 2.sch");
  EXPECT_EQ(questions, 1);
}

TEST(QtDialogs, AFolderThatIsTypedIsEnteredAndNoName) {
  TypingFolder folder;
  ASSERT_TRUE(QDir(folder.Place.path()).mkdir("Vol. 2"));
  std::optional<std::string> chosen;
  folder.Dialogs.LeaveOpen(folder.Save("lst"), [&](const std::string& name) { chosen = name; });
  ASSERT_EQ(Standing<QFileDialog>().size(), 1);
  QFileDialog& box = *Standing<QFileDialog>().front();
  Choose(box, "Vol. 2");
  EXPECT_EQ(box.directory().dirName(), "Vol. 2");
  Choose(box, "b");
  folder.Loop.PumpUntil([&] { return chosen.has_value(); });
  EXPECT_EQ(*chosen, folder.Place.filePath("Vol. 2/b.lst").toStdString());
}

TEST(QtDialogs, ANameThatIsOpenedWithoutAnExtensionIsSoughtWithTheDefaultOne) {
  TypingFolder folder;
  EXPECT_EQ(folder.Typed("a", folder.Asked(false)), "a.sch");
}

TEST(QtDialogs, TheNameOfAFileThatExistsIsTakenAfterAQuestion) {
  TypingFolder folder;
  int questions = 0;
  const auto answer = [&](QMessageBox::StandardButton key) {
    WhenOpen<QMessageBox>([&questions, key](QMessageBox& box) {
      ++questions;
      box.button(key)->click();
    });
  };
  answer(QMessageBox::Yes);
  EXPECT_EQ(folder.Typed("a", folder.Save("sch")), "a.sch");
  answer(QMessageBox::No);
  WhenOpen<QFileDialog>([&](QFileDialog& box) {
    Choose(box, "a.sch");  // returns after the question
    EXPECT_TRUE(box.isVisible());
    box.reject();
  });
  EXPECT_EQ(Chosen(folder.Loop, folder.Dialogs, folder.Save("sch")), "");
  EXPECT_EQ(questions, 2);
}

TEST(QtDialogs, ANameInAnotherCaseIsThatOfTheFileThatExists) {
  TypingFolder folder;
  int questions = 0;
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    ++questions;
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(folder.Typed("A.SCH", folder.Save("sch")), "a.sch");
  EXPECT_EQ(questions, 1);
}

TEST(QtDialogs, NamesWithALineEndAreNotOffered) {
  TypingFolder folder;
  QFile file(folder.Place.filePath("two\nlines.sch"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
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

TEST(QtDialogs, FileDialogsWriteNothingIntoTheOperatorsConfiguration) {
  TypingFolder folder;
  QPointer<QFileDialog> dialog;
  WhenOpen<QFileDialog>([&](QFileDialog& box) {
    dialog = &box;
    Choose(box, "a.sch");
  });
  Chosen(folder.Loop, folder.Dialogs, folder.Asked(true));
  folder.Loop.PumpUntil([&] { return dialog.isNull(); });  // it keeps its looks when it goes
  const QDir configuration(qEnvironmentVariable("XDG_CONFIG_HOME"));
  EXPECT_TRUE(configuration.exists());
  EXPECT_EQ(configuration.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

TEST(QtDialogs, ASaveDialogThatIsLeftGivesNoName) {
  TypingFolder folder;
  WhenOpen<QFileDialog>([](QFileDialog& box) {
    EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(box.fileMode(), QFileDialog::AnyFile);
    box.findChild<QLineEdit*>("fileNameEdit")->setText("day");
    box.reject();
  });
  EXPECT_EQ(Chosen(folder.Loop, folder.Dialogs, folder.Save("seq")), "");
}

TEST(QtDialogs, BoxesShowTheirTextsWhole) {
  Desk desk;
  QtEventLoop loop;
  QtDialogs dialogs(loop);
  const auto keep = [](QWidget& box, const char* name) {
    QDir().mkpath(QString(MARLEX_BINARY_DIR) + "/screenshots");
    EXPECT_TRUE(box.grab().save(QString(MARLEX_BINARY_DIR) + "/screenshots/" + name + ".png"));
    box.close();
  };
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    const auto* text = box.findChild<QLabel*>("qt_msgbox_label");
    EXPECT_GE(text->height(), text->heightForWidth(text->width()));
    keep(box, "message_box");
  });
  dialogs.MsgBox(
      "Unable to detect a mixer:\rPossible causes:\rNo sound card, or no driver for it, is present",
      BoxIcon::Critical, "Problem");
  Folder folder;
  WhenOpen<QFileDialog>([&](QFileDialog& box) { keep(box, "file_dialog"); });
  Chosen(loop, dialogs, folder.Asked(true));
}

/// The main window with a call key that writes down what it hears, and boxes over it.
struct CallPlace : Desk {
  CallPlace() {
    Forms.frmMain.cmdCall.OnMouseDown = [this](MouseButton) { Heard += "down "; };
    Forms.frmMain.cmdCall.OnMouseUp = [this](MouseButton) { Heard += "up "; };
    Forms.frmMain.frRouting.Visible = true;
    Forms.frmMain.frCall.Visible = false;
    ShowMain();
  }
  ~CallPlace() {
    for (QDialog* dialog : Standing<QDialog>()) dialog->close();
  }

  QPoint KeyPlace() {
    auto& key = Find<QPushButton>("cmdCall");
    return key.mapTo(&Screen.Main(), key.rect().center());
  }
  void Press() {
    QTest::mousePress(Screen.Main().windowHandle(), Qt::LeftButton, {}, KeyPlace());
    Settle();
  }
  void Release() {
    QTest::mouseRelease(Screen.Main().windowHandle(), Qt::LeftButton, {}, KeyPlace());
    Settle();
  }

  QtEventLoop BoxLoop;
  QtDialogs Boxes{BoxLoop};
  std::string Heard;
};

TEST(QtDialogs, ANoticeThatStandsBarsNoCallKey) {
  CallPlace desk;
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  desk.Settle();
  ASSERT_EQ(Standing<QMessageBox>().size(), 1);
  desk.Press();
  EXPECT_EQ(desk.Heard, "down ");
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, AFileDialogOfTheMainWindowBarsNoCallKey) {
  Folder folder;
  CallPlace desk;
  desk.Boxes.LeaveOpen(folder.Asked(true), [](const std::string&) {});
  desk.Settle();
  ASSERT_EQ(Standing<QFileDialog>().size(), 1);
  desk.Press();
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
}

TEST(QtDialogs, ANoticeThatComesWhileTheKeyIsHeldWaitsUntilItIsLetGo) {
  for (const bool byFinger : {false, true}) {
    CallPlace desk;
    Finger finger(desk.Find<QPushButton>("cmdCall"));
    byFinger ? finger.Press() : desk.Press();
    desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
    QTest::qWait(200);
    desk.Settle();
    EXPECT_EQ(desk.Heard, "down ") << "the operator still speaks";
    byFinger ? finger.Release() : desk.Release();
    EXPECT_TRUE(QTest::qWaitFor([] { return Standing<QMessageBox>().size() == 1; }));
    desk.Settle();
    EXPECT_EQ(desk.Heard, "down up ");
  }
}

TEST(QtDialogs, TheFileDialogOfAnEditorBlocksItAloneAndANoticeOverItStays) {
  Folder folder;
  CallPlace desk;
  desk.Forms.frmPlaylist.Show();
  desk.Settle();
  QWidget& editor = desk.Screen.Playlist();
  editor.activateWindow();
  QApplication::processEvents();
  int clicks = 0;
  desk.Forms.frmPlaylist.cmdRandomize.OnClick = [&] { ++clicks; };
  desk.Boxes.LeaveOpen(folder.Asked(true), [](const std::string&) {});
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  desk.Settle();
  auto& key = *editor.findChild<QPushButton*>("cmdRandomize");
  QTest::mouseClick(editor.windowHandle(), Qt::LeftButton, {},
                    key.mapTo(&editor, key.rect().center()));
  desk.Settle();
  EXPECT_EQ(clicks, 0);
  desk.Press();
  desk.Release();
  EXPECT_EQ(desk.Heard, "down up ");
  Standing<QFileDialog>().front()->close();
  desk.Settle();
  ASSERT_EQ(Standing<QMessageBox>().size(), 1);
  QMessageBox& notice = *Standing<QMessageBox>().front();
  const QPushButton& answer = *qobject_cast<QPushButton*>(notice.button(QMessageBox::Ok));
  QTest::mouseClick(notice.windowHandle(), Qt::LeftButton, {},
                    answer.mapTo(&notice, answer.rect().center()));
  desk.Settle();
  EXPECT_TRUE(Standing<QMessageBox>().isEmpty());
}

TEST(QtDialogs, ANoticeOverAnotherStaysWhenThatOneIsAnswered) {
  CallPlace desk;
  desk.Boxes.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  desk.Settle();
  desk.Boxes.LeaveMsgBox("No ink", BoxIcon::Critical, "Error");
  desk.Settle();
  for (QMessageBox* box : Standing<QMessageBox>()) {
    if (box->text() == "No paper") box->accept();
  }
  QTest::qWait(1);
  ASSERT_EQ(Standing<QMessageBox>().size(), 1);
  EXPECT_EQ(Standing<QMessageBox>().front()->text(), "No ink");
}

}  // namespace
}  // namespace marlex
