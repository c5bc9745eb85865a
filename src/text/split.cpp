#include "text/split.h"

#include "text/text_case.h"

namespace marlex {

std::vector<std::string> SplitCuttingLast(const std::string& text, char separator) {
  constexpr std::size_t kLongestLast = 100;
  if (text.find(separator) == std::string::npos) return {text};
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (auto end = text.find(separator); end != std::string::npos;
       end = text.find(separator, start)) {
    parts.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  parts.emplace_back(FirstCharacters(std::string_view(text).substr(start), kLongestLast));
  return parts;
}

}  // namespace marlex
