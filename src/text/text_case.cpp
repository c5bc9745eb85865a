#include "text/text_case.h"

namespace marlex {

namespace {

// Not a character: such codes are surrogates, which well-formed UTF-8 never contains.
constexpr char32_t kLoneByte = 0xDC00;

/// Capital letters that follow no regular pattern, each followed by its small letter.
constexpr std::u16string_view kApart = u"ŸÿƑƒΆάΈέΉήΊίΌόΎύΏώΪϊΫϋςσҐґ";

bool Between(char32_t code, char32_t first, char32_t last) { return code >= first && code <= last; }

/// Number of bytes announced by the lead byte of a character; 0 for a byte that is not a lead byte.
std::size_t AnnouncedBytes(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

/// Whether a code needs as many bytes as it took, and is allowed in UTF-8 (RFC 3629).
bool WellFormed(char32_t code, std::size_t bytes) {
  if (bytes == 3) return code >= 0x800 && !Between(code, 0xD800, 0xDFFF);
  if (bytes == 4) return Between(code, 0x10000, 0x10FFFF);
  return true;
}

Character First(std::string_view text) {
  const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const Character loneByte{kLoneByte + byteAt(0), 1};
  const std::size_t bytes = AnnouncedBytes(byteAt(0));
  if (bytes == 1) return {byteAt(0), 1};
  if (bytes == 0 || bytes > text.size()) return loneByte;
  char32_t code = byteAt(0) & (0x7FU >> bytes);
  for (std::size_t index = 1; index < bytes; ++index) {
    if ((byteAt(index) & 0xC0) != 0x80) return loneByte;
    code = code << 6 | (byteAt(index) & 0x3F);
  }
  return WellFormed(code, bytes) ? Character{code, bytes} : loneByte;
}

/// Small letter of a capital one, by the simple case folding of the Unicode standard, for the
/// alphabets that the system's operators use. A final sigma equals any other sigma.
char32_t Fold(char32_t code) {
  if (code < 0x80) return Between(code, 'A', 'Z') ? code + 32 : code;
  if (Between(code, 0xC0, 0xDE) && code != 0xD7)
    return code + 32;  // Latin-1, without the multiplication sign
  const bool evenIsCapital =
      Between(code, 0x100, 0x12F) || Between(code, 0x132, 0x137) || Between(code, 0x14A, 0x177);
  if (evenIsCapital) return code | 1;
  const bool oddIsCapital = Between(code, 0x139, 0x148) || Between(code, 0x179, 0x17E);
  if (oddIsCapital) return code + (code & 1);
  if (Between(code, 0x391, 0x3A9) && code != 0x3A2) return code + 32;  // Greek
  if (Between(code, 0x400, 0x40F)) return code + 80;                   // Cyrillic
  if (Between(code, 0x410, 0x42F)) return code + 32;
  for (std::size_t at = 0; at < kApart.size(); at += 2) {
    if (kApart[at] == code) return kApart[at + 1];
  }
  return code;
}

/// Compares the folded texts: negative, 0 or positive.
int CompareFolded(std::string_view one, std::string_view other) {
  while (!one.empty() && !other.empty()) {
    const Character left = FirstFolded(one);
    const Character right = FirstFolded(other);
    if (left.Code != right.Code) return left.Code < right.Code ? -1 : 1;
    one.remove_prefix(left.Bytes);
    other.remove_prefix(right.Bytes);
  }
  return static_cast<int>(!one.empty()) - static_cast<int>(!other.empty());
}

}  // namespace

Character FirstCharacter(std::string_view text) { return First(text); }

bool IsLoneByte(const Character& character) {
  return Between(character.Code, kLoneByte, kLoneByte + 0xFF);
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const Character character = First(text);
    if (IsLoneByte(character)) return false;
    text.remove_prefix(character.Bytes);
  }
  return true;
}

void AppendUtf8(std::string& text, char32_t code) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) return append(code);
  if (code < 0x800) {
    append(0xC0 | code >> 6);
  } else if (code < 0x10000) {
    append(0xE0 | code >> 12);
    append(0x80 | (code >> 6 & 0x3F));
  } else {
    append(0xF0 | code >> 18);
    append(0x80 | (code >> 12 & 0x3F));
    append(0x80 | (code >> 6 & 0x3F));
  }
  append(0x80 | (code & 0x3F));
}

Character FirstFolded(std::string_view text) {
  // A fast path: folders of thousands of names are sorted with this, and most of their letters are
  // ASCII.
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < 0x80) return {Fold(byte), 1};
  const Character first = First(text);
  return {Fold(first.Code), first.Bytes};
}

bool SameButForCase(std::string_view one, std::string_view other) {
  return CompareFolded(one, other) == 0;
}

bool NameComesBefore(std::string_view one, std::string_view other) {
  const int order = CompareFolded(one, other);
  return order != 0 ? order < 0 : one < other;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  // After a mismatch, retries only the latest star, one character further on, so that no pattern
  // takes exponential time.
  std::string_view nameAtStar;
  std::string_view patternAfterStar;
  bool starSeen = false;
  while (!name.empty() || !pattern.empty()) {
    if (!pattern.empty() && pattern.front() == '*') {
      pattern.remove_prefix(1);
      starSeen = true;
      nameAtStar = name;
      patternAfterStar = pattern;
      continue;
    }
    if (!name.empty() && !pattern.empty()) {
      const Character wanted = FirstFolded(pattern);
      const Character found = FirstFolded(name);
      if (wanted.Code == '?' || wanted.Code == found.Code) {
        pattern.remove_prefix(wanted.Bytes);
        name.remove_prefix(found.Bytes);
        continue;
      }
    }
    if (!starSeen || nameAtStar.empty()) return false;
    nameAtStar.remove_prefix(FirstFolded(nameAtStar).Bytes);
    name = nameAtStar;
    pattern = patternAfterStar;
  }
  return true;
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(First(text).Bytes);
  return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t maxCharacters) {
  std::size_t length = 0;
  for (; maxCharacters > 0 && length < text.size(); --maxCharacters) {
    const bool isAscii = AnnouncedBytes(static_cast<unsigned char>(text[length])) == 1;
    length += isAscii ? 1 : First(text.substr(length)).Bytes;
  }
  return text.substr(0, length);
}

std::string_view CharactersFrom(std::string_view text, std::size_t first,
                                std::size_t maxCharacters) {
  text.remove_prefix(FirstCharacters(text, first - 1).size());
  return FirstCharacters(text, maxCharacters);
}

}  // namespace marlex
