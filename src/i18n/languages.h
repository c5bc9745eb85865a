#pragma once

#include <array>

#include "text/code_pages.h"

namespace marlex {

/// A language: its English name, which the settings store, the base of its block in the string
/// table, and the code page of files written by older PCs.
struct Language {
  const char* Name;
  int LanguageBase;
  CodePage OldPage = CodePage::WestEuropean;
};

/// In the order of the option buttons in the language dialog.
inline constexpr std::array<Language, 14> kLanguageTable = {{
    {"English", 0},
    {"French", 10000},
    {"German", 20000},
    {"Spanish", 30000},
    {"Finnish", 40000},
    {"Hungarian", 50000, CodePage::CentralEuropean},
    {"Greek", 60000, CodePage::Greek},
    {"Russian", 15000, CodePage::Cyrillic},
    {"Hebrew", 25000, CodePage::Hebrew},
    {"Turkish", 35000, CodePage::Turkish},
    {"Dutch", 5000},
    {"Norwegian", 45000},
    {"Italian", 2000},
    {"Swedish", 7000},
}};

}  // namespace marlex
