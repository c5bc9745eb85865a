#include "desktop/windows/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLayout>
#include <QMessageBox>
#include <QSettings>
#include <QSortFilterProxyModel>
#include <memory>
#include <utility>

#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

constexpr QSize kFileDialogSize(840, 540);
constexpr QMargins kBoxMargins(20, 18, 20, 16);

/// The window that a box belongs to: the one in front, else any that can be seen.
QWidget* FrontWindow() {
  if (QWidget* active = QApplication::activeModalWidget()) return active;
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowType() != Qt::Popup &&
        window->windowType() != Qt::ToolTip)
      return window;
  }
  return nullptr;
}

/// "Text (*.ext)|*.ext" holds a description and its patterns, separated by ';'; Qt takes "Text
/// (*.ext)".
QStringList NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList filters;
  for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
    const QString description = parts[part].section('(', 0, 0).trimmed();
    QString patterns = parts[part + 1];
    filters.append(description + " (" + patterns.replace(';', ' ') + ")");
  }
  return filters;
}

/// Leaves out names with a line end, which no settings file can hold.
class OfferedNames : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;

  /// The order of the model behind, which has directories first and sizes by number.
  void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
    const QString name = sourceModel()->index(row, 0, parent).data().toString();
    return !name.contains('\n') && !name.contains('\r');
  }
};

/// A file dialog that asks before it takes the name of a file that exists also when that file's
/// name is spelled in another case: such a name leads to the file there is.
class FileDialogBox : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

 protected:
  void accept() override {
    if (acceptMode() == AcceptSave) TakeExistingName();
    QFileDialog::accept();
  }

 private:
  void TakeExistingName() {
    const QFileInfo typed(selectedFiles().value(0));
    if (typed.exists()) return;
    for (const QString& name : typed.dir().entryList(QDir::Files)) {
      if (name.compare(typed.fileName(), Qt::CaseInsensitive) != 0) continue;
      selectFile(typed.dir().filePath(name));
      return;
    }
  }
};

QFileDialog::FileMode FileMode(const FileDialog& dialog) {
  if (dialog.Save) return QFileDialog::AnyFile;
  return dialog.AllowMultiselect ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

std::string Result(const QStringList& files) {
  if (files.isEmpty()) return "";
  if (files.size() == 1) return files.first().toStdString();
  QString directory = QFileInfo(files.first()).path();
  if (!directory.endsWith('/')) directory += '/';
  for (const QString& file : files) directory += ' ' + QFileInfo(file).fileName();
  return directory.toStdString();
}

QMessageBox* MakeBox(const std::string& body, BoxIcon icon, const std::string& caption) {
  const bool isCritical = icon == BoxIcon::Critical;
  auto* box = new QMessageBox(isCritical ? QMessageBox::Critical : QMessageBox::Information,
                              ShownText(caption), ShownText(body), QMessageBox::Ok, FrontWindow());
  box->setObjectName("messageBox");
  box->setTextFormat(Qt::PlainText);
  box->layout()->setContentsMargins(kBoxMargins);
  return box;
}

void LeaveStanding(QDialog* box) {
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(Qt::ApplicationModal);
  box->show();
}

}  // namespace

/// The toolkit's file dialog keeps its looks in a file of its own among the operator's settings,
/// and the program leaves no file there: under this path none can be made.
QtDialogs::QtDialogs(EventLoop& loop) : Loop(loop) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

void QtDialogs::OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) {
  auto* box = new FileDialogBox(FrontWindow());
  box->setObjectName("fileDialog");
  box->setOption(QFileDialog::DontUseNativeDialog);
  box->setOption(QFileDialog::ReadOnly);  // files are chosen here, never renamed or deleted
  box->setProxyModel(new OfferedNames(box));
  box->setAcceptMode(dialog.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  box->setFileMode(FileMode(dialog));
  box->setNameFilters(NameFilters(dialog.Filter));
  box->setDefaultSuffix(QString::fromStdString(dialog.DefaultExtension));
  box->setDirectory(QString::fromStdString(dialog.InitialDirectory));
  box->resize(kFileDialogSize);
  QObject::connect(box, &QDialog::finished, [this, box, onChosen = std::move(onChosen)](int code) {
    const std::string result = code == QDialog::Accepted ? Result(box->selectedFiles()) : "";
    Loop.Post([onChosen, result] { onChosen(result); });
  });
  LeaveStanding(box);
}

void QtDialogs::ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) {
  std::unique_ptr<QMessageBox>(MakeBox(body, icon, caption))->exec();
}

void QtDialogs::OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
                        std::function<void()> onAnswer) {
  QMessageBox* box = MakeBox(body, icon, caption);
  QObject::connect(box, &QDialog::finished, std::move(onAnswer));
  LeaveStanding(box);
}

}  // namespace marlex
