#include "text/digit_mask.h"

#include "text/text_case.h"

namespace marlex {

std::string DigitMask(const std::vector<bool>& on) {
  std::string mask;
  for (std::size_t place = 0; place < on.size(); ++place)
    mask += on[place] ? std::to_string(place + 1) : "0";
  return mask;
}

std::optional<std::vector<bool>> DigitsInPlace(const std::string& mask, std::size_t length) {
  std::vector<bool> on;
  for (std::size_t place = 1; place <= length; ++place) {
    const std::string_view character = CharactersFrom(mask, place, 1);
    if (character.empty()) return std::nullopt;
    on.push_back(character == std::to_string(place));
  }
  return on;
}

}  // namespace marlex
