#include "desktop/windows/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <memory>
#include <utility>

#include "desktop/windows/file_dialog_box.h"
#include "desktop/windows/open_box.h"

namespace marlex {

namespace {

QWidget* AnyWindow(const std::function<bool(const QWidget&)>& isIt) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && isIt(*window)) return window;
  }
  return nullptr;
}

/// The window that a dialog belongs to: the one in front, or else any visible one. Skips boxes that
/// delete themselves when answered, since they would delete their own dialogs.
QWidget* FrontWindow() {
  QWidget* window = QApplication::activeWindow();
  if (!window) window = QApplication::activeModalWidget();
  if (!window)
    window = AnyWindow([](const QWidget& any) {
      return any.windowType() != Qt::Popup && any.windowType() != Qt::ToolTip;
    });
  while (window && window->testAttribute(Qt::WA_DeleteOnClose)) window = window->parentWidget();
  return window;
}

bool IsOwnerOf(const QWidget& window, const QWidget* box) {
  while (box && box != &window) box = box->parentWidget();
  return box != nullptr;
}

/// The same for a box that appears by itself. It could not be answered on a window that is blocked
/// by its file dialog or by a question of that dialog.
QWidget* FrontWindowOfNotices() {
  QWidget* window = FrontWindow();
  const QWidget* modal = QApplication::activeModalWidget();
  return window && IsOwnerOf(*window, modal) ? AnyWindow(StaysFree) : window;
}

/// Where several files may be chosen, a single one whose name begins with a blank would be read as
/// a directory and names, so it is returned as a list of one.
std::string Result(const QStringList& files, bool mayBeSeveral) {
  if (files.isEmpty()) return "";
  const bool readsAsList = mayBeSeveral && QFileInfo(files.first()).fileName().startsWith(' ');
  if (files.size() == 1 && !readsAsList) return files.first().toStdString();
  QString directory = QFileInfo(files.first()).path();
  if (!directory.endsWith('/')) directory += '/';
  for (const QString& file : files) directory += ' ' + QFileInfo(file).fileName();
  return directory.toStdString();
}

QMessageBox* MakeNotice(const std::string& body, BoxIcon icon, const std::string& caption,
                        const std::string& ok) {
  const bool isCritical = icon == BoxIcon::Critical;
  QMessageBox* box = MakeBox(isCritical ? QMessageBox::Critical : QMessageBox::Information, caption,
                             body, FrontWindowOfNotices());
  box->addButton(QMessageBox::Ok)->setText(QString::fromStdString(ok));
  return box;
}

}  // namespace

/// Qt's file dialog stores its state in a file among the operator's settings, where the program
/// must leave no file; under this path none can be created.
QtDialogs::QtDialogs(EventLoop& loop, const Directories& files) : Loop(loop), Files(files) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

void QtDialogs::OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) {
  auto* box = new FileDialogBox(FrontWindow(), dialog, FileTexts, Files, Pointers);
  QObject::connect(box, &QDialog::finished,
                   [this, box, mayBeSeveral = dialog.AllowMultiselect,
                    onChosen = std::move(onChosen)](int code) {
                     const std::string result =
                         code == QDialog::Accepted ? Result(box->Chosen, mayBeSeveral) : "";
                     Loop.Post([onChosen, result] { onChosen(result); });
                   });
  OpenWithoutWaiting(box, Pointers);
}

void QtDialogs::ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) {
  std::unique_ptr<QMessageBox>(MakeNotice(body, icon, caption, FileTexts.Ok))->exec();
}

void QtDialogs::OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
                        std::function<void()> onAnswer) {
  QMessageBox* box = MakeNotice(body, icon, caption, FileTexts.Ok);
  QObject::connect(box, &QDialog::finished, std::move(onAnswer));
  OpenWithoutWaiting(box, Pointers);
}

}  // namespace marlex
