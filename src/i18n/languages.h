#pragma once

#include <array>

#include "text/code_pages.h"

namespace marlex {

/// A language: its English name, which the settings store, the base of its block in the string
/// table, its locale, and the code page of files written by older PCs.
struct Language {
  const char* Name;
  int LanguageBase;
  const char* Locale;
  CodePage OldPage = CodePage::WestEuropean;
};

/// In the order of the option buttons in the language dialog.
inline constexpr std::array<Language, 14> kLanguageTable = {{
    {"English", 0, "en"},
    {"French", 10000, "fr"},
    {"German", 20000, "de"},
    {"Spanish", 30000, "es"},
    {"Finnish", 40000, "fi"},
    {"Hungarian", 50000, "hu", CodePage::CentralEuropean},
    {"Greek", 60000, "el", CodePage::Greek},
    {"Russian", 15000, "ru", CodePage::Cyrillic},
    {"Hebrew", 25000, "he", CodePage::Hebrew},
    {"Turkish", 35000, "tr", CodePage::Turkish},
    {"Dutch", 5000, "nl"},
    {"Norwegian", 45000, "nb"},
    {"Italian", 2000, "it"},
    {"Swedish", 7000, "sv"},
}};

/// Locale of the language whose block begins at `languageBase`.
constexpr const char* LocaleOf(int languageBase) {
  for (const Language& language : kLanguageTable) {
    if (language.LanguageBase == languageBase) return language.Locale;
  }
  return kLanguageTable.front().Locale;
}

}  // namespace marlex
