#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marlex {

/// The code pages 1250 to 1255, in this order: one byte per character, as written by PCs without
/// Unicode. Each language has one (i18n/languages.h): `SettingsStore::ValuesIn` and
/// `Directories::NamesIn` read with that of the chosen language.
enum class CodePage { CentralEuropean, Cyrillic, WestEuropean, Greek, Turkish, Hebrew };

/// Returns `text` if it is UTF-8; otherwise each of its bytes read in the code page, with U+FFFD
/// for an undefined one.
std::string InUtf8(std::string_view text, CodePage page);

/// Whether a name on a disk, in UTF-8 or any of the code pages, equals `wanted` except for case.
bool NamesTheSame(std::string_view onDisk, std::string_view wanted);

/// Converts UTF-16 without its byte order mark to UTF-8. Empty optional when it ends inside a
/// character or contains an unpaired surrogate.
std::optional<std::string> Utf8FromUtf16(std::string_view bytes, bool bigEndian);

/// Converts UTF-8 to UTF-16 without a byte order mark. A byte that is not UTF-8 becomes U+FFFD.
std::string Utf16FromUtf8(std::string_view text, bool bigEndian);

}  // namespace marlex
