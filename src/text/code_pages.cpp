#include "text/code_pages.h"

#include <array>
#include <cstddef>

#include "text/text_case.h"

namespace marlex {

namespace {

constexpr char32_t kNone = U'\uFFFD';  // the replacement character

/// Characters of the bytes 0x80 to 0xFF, sixteen per line, after the Unicode mapping tables of the
/// code pages; U+FFFD for an undefined byte. The lower half is ASCII in every page.
using UpperHalf = std::u16string_view;

// clang-format off
constexpr UpperHalf kCentralEuropean =
    u"€\uFFFD‚\uFFFD„…†‡\uFFFD‰Š‹ŚŤŽŹ"
    u"\uFFFD‘’“”•–—\uFFFD™š›śťžź"
    u"\u00A0ˇ˘Ł¤Ą¦§¨©Ş«¬\u00AD®Ż"
    u"°±˛ł´µ¶·¸ąş»Ľ˝ľż"
    u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎ"
    u"ĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢß"
    u"ŕáâăäĺćçčéęëěíîď"
    u"đńňóôőö÷řůúűüýţ˙";

constexpr UpperHalf kCyrillic =
    u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏ"
    u"ђ‘’“”•–—\uFFFD™љ›њќћџ"
    u"\u00A0ЎўЈ¤Ґ¦§Ё©Є«¬\u00AD®Ї"
    u"°±Ііґµ¶·ё№є»јЅѕї"
    u"АБВГДЕЖЗИЙКЛМНОП"
    u"РСТУФХЦЧШЩЪЫЬЭЮЯ"
    u"абвгдежзийклмноп"
    u"рстуфхцчшщъыьэюя";

constexpr UpperHalf kWestEuropean =
    u"€\uFFFD‚ƒ„…†‡ˆ‰Š‹Œ\uFFFDŽ\uFFFD"
    u"\uFFFD‘’“”•–—˜™š›œ\uFFFDžŸ"
    u"\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯"
    u"°±²³´µ¶·¸¹º»¼½¾¿"
    u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"
    u"ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"
    u"àáâãäåæçèéêëìíîï"
    u"ðñòóôõö÷øùúûüýþÿ";

constexpr UpperHalf kGreek =
    u"€\uFFFD‚ƒ„…†‡\uFFFD‰\uFFFD‹\uFFFD\uFFFD\uFFFD\uFFFD"
    u"\uFFFD‘’“”•–—\uFFFD™\uFFFD›\uFFFD\uFFFD\uFFFD\uFFFD"
    u"\u00A0΅Ά£¤¥¦§¨©\uFFFD«¬\u00AD®―"
    u"°±²³΄µ¶·ΈΉΊ»Ό½ΎΏ"
    u"ΐΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟ"
    u"ΠΡ\uFFFDΣΤΥΦΧΨΩΪΫάέήί"
    u"ΰαβγδεζηθικλμνξο"
    u"πρςστυφχψωϊϋόύώ\uFFFD";

constexpr UpperHalf kTurkish =
    u"€\uFFFD‚ƒ„…†‡ˆ‰Š‹Œ\uFFFD\uFFFD\uFFFD"
    u"\uFFFD‘’“”•–—˜™š›œ\uFFFD\uFFFDŸ"
    u"\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯"
    u"°±²³´µ¶·¸¹º»¼½¾¿"
    u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"
    u"ĞÑÒÓÔÕÖ×ØÙÚÛÜİŞß"
    u"àáâãäåæçèéêëìíîï"
    u"ğñòóôõö÷øùúûüışÿ";

constexpr UpperHalf kHebrew =
    u"€\uFFFD‚ƒ„…†‡ˆ‰\uFFFD‹\uFFFD\uFFFD\uFFFD\uFFFD"
    u"\uFFFD‘’“”•–—˜™\uFFFD›\uFFFD\uFFFD\uFFFD\uFFFD"
    u"\u00A0¡¢£₪¥¦§¨©×«¬\u00AD®¯"
    u"°±²³´µ¶·¸¹÷»¼½¾¿"
    u"\u05B0\u05B1\u05B2\u05B3\u05B4\u05B5\u05B6\u05B7\u05B8\u05B9\uFFFD\u05BB\u05BC\u05BD־\u05BF"
    u"׀\u05C1\u05C2׃װױײ׳״\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"
    u"אבגדהוזחטיךכלםמן"
    u"נסעףפץצקרשת\uFFFD\uFFFD\u200E\u200F\uFFFD";

// clang-format on

/// In the order of `CodePage`.
constexpr std::array kUpperHalves = {kCentralEuropean, kCyrillic, kWestEuropean,
                                     kGreek,           kTurkish,  kHebrew};

constexpr bool AllWhole() {
  for (const UpperHalf& half : kUpperHalves) {
    if (half.size() != 128) return false;
  }
  return true;
}
static_assert(AllWhole());

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Two bytes as one UTF-16 code unit.
char16_t UnitAt(std::string_view bytes, bool bigEndian) {
  const auto first = static_cast<unsigned char>(bytes[0]);
  const auto second = static_cast<unsigned char>(bytes[1]);
  return static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
}

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendUnit(std::string& bytes, char32_t unit, bool bigEndian) {
  const auto high = static_cast<char>(unit >> 8 & 0xFF);
  const auto low = static_cast<char>(unit & 0xFF);
  bytes += bigEndian ? high : low;
  bytes += bigEndian ? low : high;
}

}  // namespace

std::string InUtf8(std::string_view text, CodePage page) {
  if (IsUtf8(text)) return std::string(text);
  const UpperHalf& half = kUpperHalves[static_cast<std::size_t>(page)];
  std::string read;
  for (const char c : text)
    AppendUtf8(read, IsAscii(c) ? char32_t(c) : half[static_cast<unsigned char>(c) - 0x80]);
  return read;
}

bool NamesTheSame(std::string_view onDisk, std::string_view wanted) {
  if (IsUtf8(onDisk)) return SameButForCase(onDisk, wanted);
  for (std::size_t page = 0; page < kUpperHalves.size(); ++page) {
    if (SameButForCase(InUtf8(onDisk, static_cast<CodePage>(page)), wanted)) return true;
  }
  return false;
}

std::optional<std::string> Utf8FromUtf16(std::string_view bytes, bool bigEndian) {
  std::string text;
  for (; bytes.size() >= 2; bytes.remove_prefix(2)) {
    const char16_t unit = UnitAt(bytes, bigEndian);
    if (!IsHigh(unit)) {
      if (IsLow(unit)) return std::nullopt;
      AppendUtf8(text, unit);
      continue;
    }
    bytes.remove_prefix(2);
    const char16_t low = bytes.size() < 2 ? char16_t() : UnitAt(bytes, bigEndian);
    if (!IsLow(low)) return std::nullopt;
    AppendUtf8(text, 0x10000 + ((char32_t(unit) - 0xD800) << 10 | (char32_t(low) - 0xDC00)));
  }
  if (!bytes.empty()) return std::nullopt;
  return text;
}

std::string Utf16FromUtf8(std::string_view text, bool bigEndian) {
  std::string bytes;
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    text.remove_prefix(character.Bytes);
    const char32_t code = IsLoneByte(character) ? kNone : character.Code;
    if (code < 0x10000) {
      AppendUnit(bytes, code, bigEndian);
    } else {
      AppendUnit(bytes, 0xD800 + ((code - 0x10000) >> 10), bigEndian);
      AppendUnit(bytes, 0xDC00 + ((code - 0x10000) & 0x3FF), bigEndian);
    }
  }
  return bytes;
}

}  // namespace marlex
