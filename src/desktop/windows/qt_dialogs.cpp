#include "desktop/windows/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QSortFilterProxyModel>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <utility>

#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

constexpr QSize kFileDialogSize(840, 540);
constexpr int kHeldStepMs = 20;
constexpr QMargins kBoxMargins(20, 18, 20, 16);

QWidget* AnyWindow(const std::function<bool(const QWidget&)>& isIt) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && isIt(*window)) return window;
  }
  return nullptr;
}

/// The main window: nothing bars its call key or refuses its close, so no box may block it.
bool StaysFree(const QWidget& window) { return window.property("staysFree").toBool(); }

/// The window that a box belongs to: the one in front, else any that can be seen. A box that is
/// deleted when it is answered does not count: its own boxes would go with it.
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

/// The same for a box that comes by itself: it could not be answered on a window that its own file
/// dialog blocks.
QWidget* FrontWindowOfNotices() {
  QWidget* window = FrontWindow();
  const QWidget* modal = QApplication::activeModalWidget();
  return modal && modal->parentWidget() == window ? AnyWindow(StaysFree) : window;
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

/// The endings that the patterns of a filter ask for, as ".ext", and the default one.
QStringList Endings(const FileDialog& dialog) {
  QStringList endings = {'.' + QString::fromStdString(dialog.DefaultExtension)};
  const QStringList parts = QString::fromStdString(dialog.Filter).split('|');
  for (qsizetype part = 1; part < parts.size(); part += 2)
    for (const QString& pattern : parts[part].split(';')) endings.append(pattern.mid(1));
  return endings;
}

/// A file dialog that saves every name that ends neither in the default extension nor in one of the
/// filter's with the default one: a point in a name makes no extension. Then it asks before it
/// takes the name of a file that exists, also when that file's name is spelled in another case:
/// such a name leads to the file there is.
class FileDialogBox : public QFileDialog {
 public:
  FileDialogBox(QWidget* parent, const FileDialog& dialog)
      : QFileDialog(parent), Known(Endings(dialog)) {
    setAcceptMode(dialog.Save ? AcceptSave : AcceptOpen);
    setDefaultSuffix(QString::fromStdString(dialog.DefaultExtension));
  }

 protected:
  void accept() override {
    if (acceptMode() == AcceptSave) {
      CompleteName();
      TakeExistingName();
    }
    QFileDialog::accept();
  }

 private:
  QLineEdit& Name() const { return *findChild<QLineEdit*>("fileNameEdit"); }

  void CompleteName() {
    const QString name = Name().text();
    if (LacksExtension(name)) Name().setText(name + "." + defaultSuffix());
  }

  bool LacksExtension(const QString& name) const {
    if (defaultSuffix().isEmpty() || name.isEmpty()) return false;
    const bool isFolder = name == "~" || name.endsWith('/') || QFileInfo(directory(), name).isDir();
    if (isFolder) return false;
    return std::none_of(Known.begin(), Known.end(), [&name](const QString& ending) {
      return name.endsWith(ending, Qt::CaseInsensitive);
    });
  }

  void TakeExistingName() {
    const QFileInfo typed(selectedFiles().value(0));
    if (typed.exists()) return;
    for (const QString& name : typed.dir().entryList(QDir::Files)) {
      if (name.compare(typed.fileName(), Qt::CaseInsensitive) != 0) continue;
      Name().setText(typed.dir().filePath(name));
      return;
    }
  }

  QStringList Known;
};

/// What a file dialog itself has to ask, as whether a file may be replaced, would bar all windows.
class QuestionsBarTheirOwner : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::ChildPolished) return false;
    auto* question = qobject_cast<QMessageBox*>(static_cast<QChildEvent*>(event)->child());
    if (!question) return false;
    question->setWindowModality(Qt::WindowModal);
    question->windowHandle()->setModality(Qt::WindowModal);
    return false;
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
  auto* box =
      new QMessageBox(isCritical ? QMessageBox::Critical : QMessageBox::Information,
                      ShownText(caption), ShownText(body), QMessageBox::Ok, FrontWindowOfNotices());
  box->setObjectName("messageBox");
  box->setTextFormat(Qt::PlainText);
  box->layout()->setContentsMargins(kBoxMargins);
  return box;
}

/// A window that comes up takes the keyboard from the one in front, and with it the call of an
/// operator who speaks. So it waits until no key of the mouse and no finger is down.
void ShowWhenNothingIsHeld(QDialog* box) {
  if (QGuiApplication::mouseButtons() != Qt::NoButton) {
    QTimer::singleShot(kHeldStepMs, box, [box] { ShowWhenNothingIsHeld(box); });
    return;
  }
  box->show();
  box->activateWindow();
}

/// It blocks the window that it belongs to, but never the main one.
void LeaveStanding(QDialog* box) {
  const bool blocks = box->parentWidget() && !StaysFree(*box->parentWidget());
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(blocks ? Qt::WindowModal : Qt::NonModal);
  ShowWhenNothingIsHeld(box);
}

}  // namespace

/// The toolkit's file dialog keeps its looks in a file of its own among the operator's settings,
/// and the program leaves no file there: under this path none can be made.
QtDialogs::QtDialogs(EventLoop& loop) : Loop(loop) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

void QtDialogs::OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) {
  auto* box = new FileDialogBox(FrontWindow(), dialog);
  box->setObjectName("fileDialog");
  box->setOption(QFileDialog::DontUseNativeDialog);
  box->setOption(QFileDialog::ReadOnly);  // files are chosen here, never renamed or deleted
  box->setProxyModel(new OfferedNames(box));
  box->installEventFilter(new QuestionsBarTheirOwner(box));
  box->setFileMode(FileMode(dialog));
  box->setNameFilters(NameFilters(dialog.Filter));
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
