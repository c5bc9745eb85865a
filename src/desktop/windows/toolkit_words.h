#pragma once

#include <QTranslator>
#include <functional>
#include <string>

namespace marlex {

/// The toolkit's own words that the program has no text for, in the language that is chosen at the
/// moment: the menus of text fields and scroll bars, the names of keys in the menus, and two names
/// in the file dialog. They come from the toolkit's translations; a language without one, or a PC
/// without any, keeps English.
///
/// Deliberate: nothing else is translated. The toolkit's other texts are replaced by the program's,
/// and one of them would mirror every window in Hebrew.
class ToolkitWords : public QTranslator {
 public:
  using LocaleNow = std::function<std::string()>;

  /// Translates while the object exists. `folder` holds the translations.
  explicit ToolkitWords(LocaleNow locale, const QString& folder = InstalledFolder());

  static QString InstalledFolder();

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int n) const override;

 private:
  void Follow() const;

  const LocaleNow Locale;
  const QString Folder;
  mutable QTranslator Words;    // as read from the folder ...
  mutable std::string WordsIn;  // ... for this locale
};

}  // namespace marlex
