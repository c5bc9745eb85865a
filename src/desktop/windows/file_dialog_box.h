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

/// The desktop's own file dialog where the desktop offers one to Qt (its platform theme, or a
/// portal), otherwise Qt's, which then shows names and nothing else, in the operator's language.
/// Either way with other rules for names, and with questions and results of its own.
///
/// When saving, a name gets the default extension unless it ends in that extension or in one of the
/// filter: a dot alone does not make an extension. Quotes around a name are removed, both when
/// saving and when opening several files. A name leads to the file that the program itself would
/// find: regardless of case, and also among names in the code page of older PCs. The dialog asks
/// before it saves over such a file, and opens only files that exist.
///
/// Qt does not list names that are not UTF-8; its dialog shows them in a separate list below, in
/// folders that contain any. Qt's own questions and menus run nested event loops and block all
/// windows, so that an announcement would be held up. Nothing here waits.
///
/// The desktop's dialog asks itself before a file is replaced; this one asks once more only where
/// the rules above lead to another file. A question that is then declined ends it, since it may
/// already be off the screen.
class FileDialogBox : public QFileDialog {
 public:
  FileDialogBox(QWidget* parent, const FileDialog& dialog, const FileDialogTexts& texts,
                const Directories& files, const PointersDown& pointers);
  ~FileDialogBox() override;

  QStringList Chosen;  // paths, once the dialog is accepted

 protected:
  void accept() override;

 private:
  bool IsTheDesktops() const;
  void Prepare();
  void ShowNamesAlone();
  void Translate();
  void LeaveOutWhatWaits();
  void KeepItsButtonWorking();
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
  void ReportNotFound(const QString& name);
  void AskWhetherToReplace(const QString& path);
  QMessageBox& Ask(const QString& name, const std::string& text);
  void GoBackToTheNames();

  const FileDialogTexts Texts;
  const Directories& Files;
  const PointersDown& Pointers;
  const QStringList Patterns;  // of the filter, as "*.ext"
  const QStringList Known;     // accepted endings, as ".ext"
  const QString Suffix;        // the default one, without the dot
  QListWidget& OlderNames;
  QPointer<QMessageBox> Question;
};

}  // namespace marlex
