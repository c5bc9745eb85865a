#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QtTest>
#include <QtWidgets>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "desktop/files/disk_directories.h"
#include "desktop/process/qt_event_loop.h"
#include "desktop/windows/qt_dialogs.h"
#include "desktop/windows/shown_body.h"

namespace marlex {

/// Boxes in English over the files of the disk.
class EnglishBoxes : public QtDialogs {
 public:
  explicit EnglishBoxes(EventLoop& loop) : QtDialogs(loop, Disk) {
    FileTexts = {.Caption = "Warning",
                 .NotFound = "File not found",
                 .Exists = "The file already exists. Replace it?",
                 .Replace = "Replace",
                 .Cancel = "Cancel",
                 .Folder = "Folder:",
                 .FileName = "File name:",
                 .FileType = "File type:",
                 .Open = "Open",
                 .Save = "Save",
                 .Back = "Back",
                 .Forward = "Forward",
                 .ParentFolder = "Parent folder"};
  }

  DiskDirectories Disk;
};

/// The dialog that the operator meets: the one that blocks others, otherwise the front one.
inline QWidget* DialogInFront() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return qobject_cast<QDialog*>(QApplication::activeWindow());
}

/// The visible dialogs of type T.
template <class T>
QList<T*> OpenDialogs() {
  QList<T*> open;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* dialog = qobject_cast<T*>(window);
    if (dialog && dialog->isVisible()) open.append(dialog);
  }
  return open;
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

struct Folder {
  Folder() {
    for (const char* name : {"a.sch", "b c.sch", "other.txt"}) Make(name);
  }
  /// The class that created the folder cannot delete a name that is not valid UTF-8.
  ~Folder() { std::filesystem::remove_all(Place.path().toStdString()); }

  void Make(const std::string& name) {
    std::ofstream(Place.path().toStdString() + "/" + name) << "made";
  }
  FileDialog Asked(bool many) const {
    return {"Schedules (*.sch)|*.sch", "sch", Place.path().toStdString() + "/", many};
  }
  QTemporaryDir Place;
};

/// The result of a file dialog that is answered by `WhenOpen`.
inline std::string Chosen(QtEventLoop& loop, QtDialogs& dialogs, const FileDialog& dialog) {
  std::optional<std::string> chosen;
  dialogs.LeaveOpen(dialog, [&](const std::string& result) { chosen = result; });
  EXPECT_FALSE(chosen);  // nobody had to wait
  loop.PumpUntil([&] { return chosen.has_value(); });
  return *chosen;
}

/// Types names into a file dialog and presses its button.
inline void Choose(QFileDialog& box, const QString& names) {
  const bool saves = box.acceptMode() == QFileDialog::AcceptSave;
  auto& name = *box.findChild<QLineEdit*>("fileNameEdit");
  box.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
  name.setFocus();  // otherwise the list would replace the text by its own selection
  name.setText(names);
  static_cast<QDialog&>(box)
      .findChild<QDialogButtonBox*>()
      ->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open)
      ->click();
}

/// Presses a button of a box by its caption.
inline void Answer(QMessageBox& box, const QString& caption) {
  for (QAbstractButton* button : box.buttons()) {
    if (button->text().remove('&') == caption) return button->click();
  }
  ADD_FAILURE() << "no button " << caption.toStdString();
}

/// The only message box that is open.
inline QMessageBox& OpenQuestion() {
  const auto open = OpenDialogs<QMessageBox>();
  if (open.size() != 1) throw std::runtime_error("There is not one question");
  return *open.front();
}

/// A folder, and an operator who types names into its file dialogs.
struct TypingFolder : Folder {
  ~TypingFolder() {
    for (QDialog* dialog : OpenDialogs<QDialog>()) dialog->close();
  }

  FileDialog Save(const std::string& extension) const {
    FileDialog dialog = Asked(false);
    dialog.DefaultExtension = extension;
    dialog.Save = true;
    return dialog;
  }
  FileDialog Open(bool many = false) const { return Asked(many); }

  /// Opens a dialog and types a name.
  QFileDialog& Type(const QString& name, const FileDialog& dialog) {
    Result.reset();
    Dialogs.LeaveOpen(dialog, [this](const std::string& result) { Result = result; });
    const auto open = OpenDialogs<QFileDialog>();
    if (open.size() != 1) throw std::runtime_error("There is not one file dialog");
    Choose(*open.front(), name);
    return *open.front();
  }

  /// The chosen file name; empty when the dialog was cancelled.
  std::string Chosen() {
    Loop.PumpUntil([this] { return Result || !OpenDialogs<QMessageBox>().isEmpty(); });
    if (!Result) return "? " + WithoutMarks(OpenQuestion().text()).toStdString();
    return QFileInfo(QString::fromStdString(*Result)).fileName().toStdString();
  }
  std::string Typed(const QString& name, const FileDialog& dialog) {
    Type(name, dialog);
    return Chosen();
  }

  QtEventLoop Loop;
  EnglishBoxes Dialogs{Loop};
  std::optional<std::string> Result;
};

}  // namespace marlex
