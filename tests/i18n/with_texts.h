#pragma once

#include <regex>
#include <string>

#include "i18n/string_table.h"

namespace marlex {

/// The text with each "#<id>" replaced by the string of that id in the chosen language.
inline std::string WithTexts(const StringTable& strings, std::string text) {
  static const std::regex id("#([0-9]+)");
  for (std::smatch found; std::regex_search(text, found, id);) {
    const std::string string = strings.LoadString(std::stoi(found[1]));
    text.replace(static_cast<std::size_t>(found.position()),
                 static_cast<std::size_t>(found.length()), string);
  }
  return text;
}

}  // namespace marlex
