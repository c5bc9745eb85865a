#include "desktop/windows/toolkit_words.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <string_view>
#include <utility>

namespace marlex {

namespace {

/// Called on other threads too, which ask for other words; those get no translation.
bool IsTranslated(std::string_view context, std::string_view source) {
  if (context == "QFileSystemModel") return source == "Computer";
  if (context == "QFileDialog") return source == "Recent Places";
  return context == "QLineEdit" || context == "QWidgetTextControl" || context == "QScrollBar" ||
         context == "QShortcut";
}

}  // namespace

ToolkitWords::ToolkitWords(LocaleNow locale, const QString& folder)
    : Locale(std::move(locale)), Folder(folder) {
  QCoreApplication::installTranslator(this);
}

QString ToolkitWords::InstalledFolder() {
  return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
}

QString ToolkitWords::translate(const char* context, const char* source, const char* disambiguation,
                                int n) const {
  if (!IsTranslated(context, source)) return {};
  Follow();
  return Words.translate(context, source, disambiguation, n);
}

/// Reads the words when another language is chosen. Without a file for it there are none.
void ToolkitWords::Follow() const {
  const std::string locale = Locale();
  if (locale == WordsIn) return;
  WordsIn = locale;
  const QLocale language(QString::fromStdString(locale));
  static_cast<void>(Words.load(language, "qtbase", "_", Folder));
}

}  // namespace marlex
