#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marlex {

/// The code pages 1250 to 1255, in their order: one byte a character, as desks wrote that knew no
/// Unicode.
enum class CodePage { CentralEuropean, Cyrillic, WestEuropean, Greek, Turkish, Hebrew };

/// The text itself when it is UTF-8; else each of its bytes read by the page, U+FFFD for one that
/// the page leaves empty.
std::string InUtf8(std::string_view text, CodePage page);

/// Whether a name on a disk, in UTF-8 or any of the code pages, is the wanted one but for case.
bool NamesTheSame(std::string_view onDisk, std::string_view wanted);

/// Text of UTF-16 without its byte order mark, in UTF-8. Nothing when it breaks off inside a
/// character or holds half of one.
std::optional<std::string> Utf8FromUtf16(std::string_view bytes, bool bigEndian);

/// The other way round; a byte that is no UTF-8 becomes U+FFFD.
std::string Utf16FromUtf8(std::string_view text, bool bigEndian);

}  // namespace marlex
