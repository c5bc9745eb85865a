#include "desktop/windows/file_dialog_box.h"

#include <QAbstractFileIconProvider>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLayout>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStackedWidget>
#include <QUrl>
#include <algorithm>

#include "desktop/windows/open_box.h"

namespace marlex {

namespace {

constexpr QSize kSize(840, 540);
constexpr int kOlderNamesHeight = 120;
constexpr int kBetweenLists = 6;

/// Converts "Text (*.ext)|*.ext", a description and its patterns separated by ';', to the form that
/// Qt takes: "Text (*.ext)".
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

QStringList PatternsOf(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList patterns;
  for (qsizetype part = 1; part < parts.size(); part += 2) patterns += parts[part].split(';');
  return patterns;
}

/// The endings in the patterns of the filter, as ".ext", and the default one.
QStringList Endings(const FileDialog& dialog) {
  QStringList endings = {'.' + QString::fromStdString(dialog.DefaultExtension)};
  for (const QString& pattern : PatternsOf(dialog.Filter)) endings.append(pattern.mid(1));
  return endings;
}

/// The text of the name field for these names.
QString Typed(const QStringList& names) {
  return names.size() == 1 ? names.front() : '"' + names.join("\" \"") + '"';
}

QFileDialog::FileMode ModeOf(const FileDialog& dialog) {
  if (dialog.Save) return QFileDialog::AnyFile;
  return dialog.AllowMultiselect ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

/// Leaves out names that contain a line break, which no settings file can hold.
class OfferedNames : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;

  /// Sorts as the source model does: directories first, sizes by number.
  void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
    const QString name = sourceModel()->index(row, 0, parent).data().toString();
    return !name.contains('\n') && !name.contains('\r');
  }
};

template <class Part>
Part& Find(QFileDialog& dialog, const char* name) {
  return *dialog.findChild<Part*>(name);
}

}  // namespace

FileDialogBox::FileDialogBox(QWidget* parent, const FileDialog& dialog,
                             const FileDialogTexts& texts, const Directories& files,
                             const PointersDown& pointers)
    // The constructor's folder leaves no history to go back to. It must exist: Qt would take the
    // name of a missing one for a file.
    : QFileDialog(parent, {}, QString::fromStdString(dialog.InitialDirectory)),
      Texts(texts),
      Files(files),
      Pointers(pointers),
      Patterns(PatternsOf(dialog.Filter)),
      Known(Endings(dialog)),
      Suffix(QString::fromStdString(dialog.DefaultExtension)),
      OlderNames(*new QListWidget(this)) {
  setObjectName("fileDialog");
  setAcceptMode(dialog.Save ? AcceptSave : AcceptOpen);
  setFileMode(ModeOf(dialog));
  setNameFilters(NameFilters(dialog.Filter));
  setWindowTitle(QString::fromStdString(dialog.Save ? Texts.Save : Texts.Open));
  OlderNames.setObjectName("olderNames");
  OlderNames.hide();
  if (!IsTheDesktops()) Prepare();
}

/// The list is destroyed after this object, and would signal to it once more.
FileDialogBox::~FileDialogBox() { OlderNames.disconnect(this); }

/// Qt makes no parts of its own for a dialog that the desktop shows.
bool FileDialogBox::IsTheDesktops() const { return !findChild<QLineEdit*>("fileNameEdit"); }

void FileDialogBox::Prepare() {
  setOption(ReadOnly);  // files are chosen here, never renamed or deleted
  setProxyModel(new OfferedNames(this));
  resize(kSize);
  ShowNamesAlone();
  Translate();
  LeaveOutWhatWaits();
  KeepItsButtonWorking();
  ListOlderNames();
}

/// No sizes, kinds and dates, and of the places those that an operator goes to: where the dialog
/// begins, and home.
void FileDialogBox::ShowNamesAlone() {
  setViewMode(List);
  setSidebarUrls(
      {QUrl::fromLocalFile(directory().absolutePath()), QUrl::fromLocalFile(QDir::homePath())});
  for (const char* button : {"listModeButton", "detailModeButton", "newFolderButton"})
    Find<QWidget>(*this, button).hide();
}

void FileDialogBox::Translate() {
  const auto& action = acceptMode() == AcceptSave ? Texts.Save : Texts.Open;
  const std::pair<DialogLabel, std::string> labels[] = {{LookIn, Texts.Folder},
                                                        {FileName, Texts.FileName},
                                                        {FileType, Texts.FileType},
                                                        {Accept, action},
                                                        {Reject, Texts.Cancel}};
  for (const auto& [label, text] : labels) setLabelText(label, QString::fromStdString(text));
  const std::pair<const char*, std::string> parts[] = {{"backButton", Texts.Back},
                                                       {"forwardButton", Texts.Forward},
                                                       {"toParentButton", Texts.ParentFolder},
                                                       {"sidebar", Texts.Folder},
                                                       {"listView", Texts.FileName},
                                                       {"olderNames", Texts.FileName}};
  for (const auto& [name, text] : parts) {
    auto& part = Find<QWidget>(*this, name);
    if (qobject_cast<QAbstractButton*>(&part)) part.setToolTip(QString::fromStdString(text));
    part.setAccessibleName(QString::fromStdString(text));
    part.setAccessibleDescription("");
  }
}

/// Removes what would wait for an answer: the context menus, which offer nothing useful here, and
/// the question that the list of places asks about a place that is gone.
void FileDialogBox::LeaveOutWhatWaits() {
  for (QAbstractItemView* list : findChildren<QAbstractItemView*>())
    list->setContextMenuPolicy(Qt::PreventContextMenu);
  auto& places = Find<QComboBox>(*this, "lookInCombo");
  disconnect(&places, nullptr, this, nullptr);
  connect(&places, &QComboBox::textActivated, this, [this, &places] {
    constexpr int kUrlRole = Qt::UserRole + 1;  // the role that Qt uses
    GoTo(places.currentData(kUrlRole).toUrl().toLocalFile());
  });
}

void FileDialogBox::GoTo(const QString& folder) {
  if (folder.isEmpty() || QFileInfo(folder).isDir()) return setDirectory(folder);
  ReportNotFound(folder);
}

/// Enables the Open or Save button for any name, and keeps its word. Qt would disable it for a name
/// that is not listed exactly as typed, and rename it for a folder.
void FileDialogBox::KeepItsButtonWorking() {
  auto& buttons = Find<QDialogButtonBox>(*this, "buttonBox");
  QPushButton& button =
      *buttons.button(acceptMode() == AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open);
  button.setProperty("face", "primary");
  const auto keep = [this, &button, word = button.text()] {
    button.setEnabled(!Name().text().isEmpty());
    button.setText(word);
  };
  connect(&Name(), &QLineEdit::textChanged, this, keep);
  connect(Find<QListView>(*this, "listView").selectionModel(),
          &QItemSelectionModel::selectionChanged, this, keep, Qt::QueuedConnection);
}

void FileDialogBox::ListOlderNames() {
  OlderNames.setMaximumHeight(kOlderNamesHeight);
  OlderNames.setSelectionMode(fileMode() == ExistingFiles ? QAbstractItemView::ExtendedSelection
                                                          : QAbstractItemView::SingleSelection);
  QLayout& lists = *Find<QStackedWidget>(*this, "stackedWidget").parentWidget()->layout();
  lists.setSpacing(kBetweenLists);
  lists.addWidget(&OlderNames);
  connect(&OlderNames, &QListWidget::itemSelectionChanged, this, [this] { TakeOlderNames(); });
  connect(&OlderNames, &QListWidget::itemActivated, this, [this] { accept(); });
  connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this,
          [this] { ShowOlderNames(); });
  ShowOlderNames();
}

void FileDialogBox::ShowOlderNames() {
  const QDir folder = directory();
  const QIcon picture = iconProvider()->icon(QAbstractFileIconProvider::File);
  OlderNames.clear();
  for (const QString& pattern : Patterns) {
    for (const std::string& name : Files.List(folder.path().toStdString(), pattern.toStdString())) {
      const QString shown = QString::fromStdString(name);
      if (!folder.exists(shown)) OlderNames.addItem(new QListWidgetItem(picture, shown));
    }
  }
  OlderNames.setVisible(OlderNames.count() > 0);
}

void FileDialogBox::TakeOlderNames() {
  QStringList names;
  for (const QListWidgetItem* item : OlderNames.selectedItems()) names.append(item->text());
  if (names.isEmpty()) return;
  Find<QListView>(*this, "listView").clearSelection();
  Name().setText(Typed(names));
}

void FileDialogBox::accept() {
  delete Question;
  const QStringList names = IsTheDesktops() ? selectedFiles() : TypedNames();
  const bool entered =
      std::any_of(names.begin(), names.end(), [this](const QString& name) { return Enter(name); });
  if (entered || names.isEmpty()) return;
  if (acceptMode() == AcceptSave)
    Save(names.front());
  else
    Open(names);
}

QLineEdit& FileDialogBox::Name() const { return *findChild<QLineEdit*>("fileNameEdit"); }

/// One name, with or without quotes, or several to open, each in quotes.
QStringList FileDialogBox::TypedNames() const {
  const QString text = Name().text();
  if (text.isEmpty()) return {};
  if (!text.contains('"') || !FileToOpen(text).isEmpty()) return {text};
  QStringList names;
  if (acceptMode() == AcceptSave) {
    const bool quoted = text.size() > 1 && text.startsWith('"') && text.endsWith('"');
    names = {quoted ? text.mid(1, text.size() - 2) : text};
  } else {
    const QStringList parts = text.split('"');
    for (qsizetype part = 1; part < parts.size(); part += 2) names.append(parts[part]);
  }
  names.removeAll("");
  return names;
}

bool FileDialogBox::LacksExtension(const QString& name) const {
  if (Suffix.isEmpty()) return false;
  return std::none_of(Known.begin(), Known.end(), [&name](const QString& ending) {
    return name.endsWith(ending, Qt::CaseInsensitive);
  });
}

QString FileDialogBox::PathOf(const QString& name) const {
  const bool atHome = name == "~" || name.startsWith("~/");
  const QString path = atHome ? QDir::homePath() + name.mid(1) : name;
  return QDir::cleanPath(directory().absoluteFilePath(path));
}

/// The path, spelled as on the disk, of what the program would find under `path`; empty if there is
/// nothing.
QString FileDialogBox::OnDisk(const QString& path) const {
  if (QFileInfo::exists(path)) return path;
  const QString name = QString::fromStdString(Files.Search(path.toStdString()));
  if (name.isEmpty()) return "";
  return QDir(OnDisk(QFileInfo(path).path())).filePath(name);
}

/// Opens the folder `name`. False if there is no such folder, or in the desktop's own dialog, which
/// opens folders itself.
bool FileDialogBox::Enter(const QString& name) {
  if (IsTheDesktops()) return false;
  const QString folder = OnDisk(PathOf(name));
  if (!QFileInfo(folder).isDir()) return false;
  setDirectory(folder);
  Name().clear();
  return true;
}

void FileDialogBox::Save(const QString& name) {
  const QString whole = LacksExtension(name) ? name + '.' + Suffix : name;
  if (Enter(whole)) return;
  const QString path = PathOf(whole);
  const QString existing = OnDisk(path);
  const bool hasBeenAsked = IsTheDesktops() && existing == name;
  if (existing.isEmpty() || hasBeenAsked) return Choose({path});
  AskWhetherToReplace(existing);
}

void FileDialogBox::Open(const QStringList& names) {
  QStringList paths;
  for (const QString& name : names) {
    paths.append(FileToOpen(name));
    if (paths.back().isEmpty()) return ReportNotFound(name);
  }
  Choose(paths);
}

/// Path of the file of that name, with or without the default extension; empty if there is none.
QString FileDialogBox::FileToOpen(const QString& name) const {
  QStringList names = {name};
  if (LacksExtension(name)) names.prepend(name + '.' + Suffix);
  for (const QString& each : names) {
    QString path = OnDisk(PathOf(each));
    if (!path.isEmpty() && !Files.HasDirectory(path.toStdString())) return path;
  }
  return "";
}

void FileDialogBox::Choose(const QStringList& paths) {
  Chosen = paths;
  done(Accepted);
}

void FileDialogBox::ReportNotFound(const QString& name) {
  QPushButton* ok = Ask(name, Texts.NotFound).addButton(QMessageBox::Ok);
  ok->setText(QString::fromStdString(Texts.Ok));
  connect(Question, &QDialog::finished, this, [this] { GoBackToTheNames(); });
  OpenWithoutWaiting(Question, Pointers);
}

void FileDialogBox::AskWhetherToReplace(const QString& path) {
  QMessageBox& question = Ask(QFileInfo(path).fileName(), Texts.Exists);
  const QAbstractButton* replace =
      question.addButton(QString::fromStdString(Texts.Replace), QMessageBox::AcceptRole);
  QPushButton* cancel =
      question.addButton(QString::fromStdString(Texts.Cancel), QMessageBox::RejectRole);
  question.setDefaultButton(cancel);
  question.setEscapeButton(cancel);
  connect(&question, &QDialog::finished, this, [this, &question, replace, path] {
    if (question.clickedButton() == replace) return Choose({path});
    GoBackToTheNames();
  });
  OpenWithoutWaiting(&question, Pointers);
}

QMessageBox& FileDialogBox::Ask(const QString& name, const std::string& text) {
  Question = MakeBox(QMessageBox::Warning, Texts.Caption, name.toStdString() + '\r' + text, this);
  return *Question;
}

void FileDialogBox::GoBackToTheNames() {
  if (IsTheDesktops()) reject();
}

}  // namespace marlex
