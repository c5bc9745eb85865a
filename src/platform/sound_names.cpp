#include "platform/sound_names.h"

#include <algorithm>

#include "platform/text_case.h"

namespace marlex {

std::vector<std::string> SoundFileSpellings(const std::string& path) {
  std::vector<std::string> spellings{path};
  const std::size_t point = path.rfind('.');
  if (point == std::string::npos) return spellings;
  const std::string extension = path.substr(point);
  for (const std::string known : {".mp3", ".wav"}) {
    if (!SameButForCase(extension, known)) continue;
    for (unsigned upper = 0; upper < 8; ++upper) {
      std::string spelling = path.substr(0, point) + known;
      for (unsigned letter = 0; letter < 3; ++letter) {
        char& c = spelling[point + 1 + letter];
        if ((upper & (1U << letter)) != 0 && c >= 'a') c = static_cast<char>(c - 'a' + 'A');
      }
      if (std::find(spellings.begin(), spellings.end(), spelling) == spellings.end())
        spellings.push_back(spelling);
    }
  }
  return spellings;
}

}  // namespace marlex
