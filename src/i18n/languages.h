#pragma once

#include <array>

namespace marlex {

/// A language by the English name that the settings keep, and the base of its block in the string
/// table.
struct Language {
  const char* Name;
  int LanguageBase;
};

/// In the order of the language dialog's keys.
inline constexpr std::array<Language, 14> kLanguageTable = {{
    {"English", 0},
    {"French", 10000},
    {"German", 20000},
    {"Spanish", 30000},
    {"Finnish", 40000},
    {"Hungarian", 50000},
    {"Greek", 60000},
    {"Russian", 15000},
    {"Hebrew", 25000},
    {"Turkish", 35000},
    {"Dutch", 5000},
    {"Norwegian", 45000},
    {"Italian", 2000},
    {"Swedish", 7000},
}};

}  // namespace marlex
