#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <string>

#include "desktop/windows/pointers_down.h"
#include "platform/dialogs.h"
#include "platform/directories.h"

namespace marlex {

/// The toolkit's file dialog with rules, questions and an answer of its own.
///
/// A name that is saved gets the default extension unless it ends in that or in one of the
/// filter's: a point in a name makes no extension. Quotes around a name come off, before a save as
/// before the opening of several. A name leads to the file that the program itself would find:
/// without regard to case, and in the code page of older desks too. The dialog asks before it takes
/// the name of such a file, and opens none that is not there.
///
/// The toolkit lists no name that is not UTF-8: those stand in a list of their own below, where the
/// folder has any. Its own questions, and its menus, wait inside a loop of their own and bar all
/// windows: an announcement under one would stand still. Here nothing waits.
class FileDialogBox : public QFileDialog {
 public:
  FileDialogBox(QWidget* parent, const FileDialog& dialog, const FileDialogTexts& texts,
                const Directories& files, const PointersDown& pointers);
  ~FileDialogBox() override;

  QStringList Chosen;  // paths, once it is accepted

 protected:
  void accept() override;

 private:
  void LeaveOutWhatWaits();
  void KeepItsKeyWorking();
  void GoTo(const QString& folder);
  void ListOlderNames();
  void ShowOlderNames();
  void TakeOlderNames();

  QLineEdit& Name() const;
  QStringList TypedNames() const;
  bool LacksExtension(const QString& name) const;
  QString PathOf(const QString& name) const;
  QString OnDisk(const QString& path) const;
  bool Enter(const QString& name);
  void Save(const QString& name);
  void Open(const QStringList& names);
  QString FileToOpen(const QString& name) const;
  void Choose(const QStringList& paths);
  void TellNotFound(const QString& name);
  void AskWhetherToReplace(const QString& path);
  QMessageBox& Ask(const QString& name, const std::string& text);

  const FileDialogTexts Texts;
  const Directories& Files;
  const PointersDown& Pointers;
  const QStringList Patterns;  // of the filter, as "*.ext"
  const QStringList Known;     // endings, as ".ext"
  QListWidget& OlderNames;
  QPointer<QMessageBox> Question;
};

}  // namespace marlex
