#include "state/characters.h"

namespace marlex {
namespace {

bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

std::string FirstCharacters(const std::string& text, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t taken = 0; taken < count && end < text.size(); ++taken) {
    ++end;
    while (end < text.size() && ContinuesCharacter(text[end])) ++end;
  }
  return text.substr(0, end);
}

std::string UpToFirstPoint(const std::string& text) { return text.substr(0, text.find('.')); }

}  // namespace marlex
