#include "desktop/windows/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <optional>

#include "desktop/process/qt_event_loop.h"
#include "desktop/windows/desk.h"
#include "places.h"

namespace marlex {
namespace {

/// Does `action` with the next dialog of type T that opens.
template <class T>
void WhenOpen(std::function<void(T&)> action) {
  auto* watch = new QTimer(qApp);
  QObject::connect(watch, &QTimer::timeout, [watch, action] {
    auto* box = qobject_cast<T*>(QApplication::activeModalWidget());
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
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  ASSERT_TRUE(box);
  EXPECT_EQ(box->text(), "No paper");
  dialogs.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  EXPECT_EQ(QApplication::activeModalWidget(), box);
  box->accept();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  dialogs.LeaveMsgBox("No paper", BoxIcon::Critical, "Error");
  ASSERT_TRUE(QApplication::activeModalWidget());
  QApplication::activeModalWidget()->close();
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
  QWidget* const first = QApplication::activeModalWidget();
  dialogs.LeaveOpen(folder.Asked(true), [&](const std::string&) { story += "second "; });
  EXPECT_EQ(QApplication::activeModalWidget(), first);
  static_cast<QDialog*>(first)->reject();
  loop.PumpUntil([&] { return !story.empty(); });
  EXPECT_EQ(story, "first ");
  dialogs.LeaveOpen(folder.Asked(true), [&](const std::string&) { story += "third"; });
  static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
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
  for (const char* name : {"day.sch", "day.seq", "DAY.SCH", "day.two.sch", "no.1"})
    EXPECT_EQ(folder.Typed(name, folder.Save("seq")), name);
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

}  // namespace
}  // namespace marlex
