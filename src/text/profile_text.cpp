#include "text/profile_text.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <unordered_map>
#include <utility>

#include "text/code_pages.h"
#include "text/text_case.h"

namespace marlex {

namespace {

constexpr std::string_view kBlanks = " \t\v\f";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

/// One line of the text, as positions from the beginning of the text.
struct Line {
  std::size_t Begin = 0;
  std::size_t End = 0;   // past the last character before the line end
  std::size_t Next = 0;  // past the line end
};

/// Iterates over the lines of a text from top to bottom.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : Text(text) {
    if (Text.starts_with(kByteOrderMark)) Place = kByteOrderMark.size();
  }

  std::optional<Line> Next() {
    if (Place >= Text.size()) return std::nullopt;
    Line line;
    line.Begin = Place;
    line.End = std::min(Text.find_first_of(kLineEnds, Place), Text.size());
    line.Next = Place = BehindLineEnd(line.End);
    return line;
  }

 private:
  /// CR LF is one line end, even if an editor left several CRs before the LF.
  std::size_t BehindLineEnd(std::size_t end) {
    if (end >= RunEnd) RunEnd = std::min(Text.find_first_not_of('\r', end), Text.size());
    if (RunEnd < Text.size() && Text[RunEnd] == '\n') return RunEnd + 1;
    return std::min(end + 1, Text.size());
  }

  std::string_view Text;
  std::size_t Place = 0;
  std::size_t RunEnd = 0;  // past the latest run of CRs, so that a long run is scanned only once
};

std::string_view Content(std::string_view text, const Line& line) {
  return WithoutBlanks(text.substr(line.Begin, line.End - line.Begin));
}

bool IsSection(std::string_view content) { return content.starts_with('['); }

/// Name between the outermost brackets. If the closing bracket is missing, the section is still
/// recognised.
std::string_view SectionName(std::string_view content) {
  const std::size_t close = content.rfind(']');
  return WithoutBlanks(content.substr(1, close == std::string_view::npos ? close : close - 1));
}

bool HasKey(std::string_view content, std::string_view key) {
  if (content.starts_with(';')) return false;
  const std::size_t equals = content.find('=');
  return equals != std::string_view::npos &&
         SameButForCase(WithoutBlanks(content.substr(0, equals)), key);
}

/// Where a key is, or where it would be inserted.
struct KeyPlace {
  std::optional<Line> KeyLine;
  // The last non-blank line of the section; empty without a section.
  std::optional<Line> LastLine;
};

KeyPlace Find(std::string_view text, std::string_view section, std::string_view key) {
  KeyPlace place;
  LineReader lines(text);
  while (const auto line = lines.Next()) {
    const std::string_view content = Content(text, *line);
    if (content.empty()) continue;
    if (IsSection(content)) {
      if (place.LastLine) return place;
      if (SameButForCase(SectionName(content), section)) place.LastLine = line;
    } else if (place.LastLine) {
      place.LastLine = line;
      if (!HasKey(content, key)) continue;
      place.KeyLine = line;
      return place;
    }
  }
  return place;
}

std::string ValueIn(std::string_view content, std::size_t maxCharacters) {
  return ReadBack(content.substr(content.find('=') + 1), maxCharacters);
}

/// The digits at the end of a line's key, if what precedes them is the prefix; else empty.
std::string_view NumberOfKey(std::string_view content, std::string_view keyPrefix) {
  if (content.starts_with(';') || content.find('=') == std::string_view::npos) return {};
  const std::string_view key = WithoutBlanks(content.substr(0, content.find('=')));
  const std::size_t number = key.find_last_not_of("0123456789") + 1;
  return SameButForCase(key.substr(0, number), keyPrefix) ? key.substr(number) : "";
}

/// Line end used by this line; for a last line without one, that of the first line.
std::string_view LineEndAt(std::string_view text, const Line& line) {
  if (line.Next > line.End) return text.substr(line.End, line.Next - line.End);
  const auto first = LineReader(text).Next();
  if (first && first->Next > first->End) return text.substr(first->End, first->Next - first->End);
  return kLineEnds;
}

std::string Concatenated(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

std::string WithNewKey(std::string_view text, const Line& after, std::string_view key,
                       std::string_view value) {
  const std::string_view lineEnd = LineEndAt(text, after);
  const std::string_view missingEnd = after.Next > after.End ? "" : lineEnd;
  return Concatenated(
      {text.substr(0, after.Next), missingEnd, key, "=", value, lineEnd, text.substr(after.Next)});
}

std::string WithNewSection(std::string_view text, std::string_view section, std::string_view key,
                           std::string_view value) {
  LineReader lines(text);
  Line last{text.size(), text.size(), text.size()};
  while (const auto line = lines.Next()) last = *line;
  const std::string_view lineEnd = LineEndAt(text, last);
  const std::string_view missingEnd = last.End > last.Begin && last.Next == last.End ? lineEnd : "";
  return Concatenated({text, missingEnd, "[", section, "]", lineEnd, key, "=", value, lineEnd});
}

}  // namespace

std::string ProfileValue(std::string_view text, std::string_view section, std::string_view key,
                         std::size_t maxCharacters) {
  const KeyPlace place = Find(text, WithoutBlanks(section), WithoutBlanks(key));
  if (!place.KeyLine) return "";
  return ValueIn(Content(text, *place.KeyLine), maxCharacters);
}

std::vector<std::string> NumberedProfileValues(std::string_view text, std::string_view section,
                                               std::string_view keyPrefix,
                                               std::size_t maxCharacters) {
  std::unordered_map<std::string_view, std::string_view> lineOfNumber;
  bool inside = false;
  LineReader lines(text);
  while (const auto line = lines.Next()) {
    const std::string_view content = Content(text, *line);
    if (IsSection(content)) {
      if (inside) break;
      inside = SameButForCase(SectionName(content), WithoutBlanks(section));
    } else if (inside) {
      lineOfNumber.try_emplace(NumberOfKey(content, keyPrefix), content);
    }
  }
  std::vector<std::string> values;
  while (true) {
    const auto next = lineOfNumber.find(std::to_string(values.size() + 1));
    const std::string value =
        next == lineOfNumber.end() ? "" : ValueIn(next->second, maxCharacters);
    if (value.empty()) return values;
    values.push_back(value);
  }
}

std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
  section = WithoutBlanks(section);
  key = WithoutBlanks(key);
  const KeyPlace place = Find(text, section, key);
  if (place.KeyLine) {
    const std::size_t equals = text.find('=', place.KeyLine->Begin);
    return Concatenated({text.substr(0, equals + 1), value, text.substr(place.KeyLine->End)});
  }
  if (place.LastLine) return WithNewKey(text, *place.LastLine, key, value);
  return WithNewSection(text, section, key, value);
}

std::string ReadBack(std::string_view value, std::size_t maxCharacters) {
  return std::string(FirstCharacters(WithoutQuotes(WithoutBlanks(value)), maxCharacters));
}

std::string QuotedName(std::string_view name) {
  const bool changed = WithoutQuotes(WithoutBlanks(name)) != name;
  return changed ? Concatenated({"\"", name, "\""}) : std::string(name);
}

std::optional<ProfileFileText> ProfileFileText::Of(std::string bytes) {
  ProfileFileText file;
  for (const std::string_view mark : {kLittleEndianMark, kBigEndianMark}) {
    if (bytes.starts_with(mark)) file.Mark = mark;
  }
  if (file.Mark.empty()) {
    file.Text = std::move(bytes);
  } else {
    const std::string_view content = std::string_view(bytes).substr(file.Mark.size());
    auto text = Utf8FromUtf16(content, file.Mark == kBigEndianMark);
    if (!text) return std::nullopt;
    file.Text = *std::move(text);
  }
  if (file.Text.find('\0') != std::string::npos) return std::nullopt;
  return file;
}

std::string ProfileFileText::Bytes() const {
  if (Mark.empty()) return Text;
  return std::string(Mark) + Utf16FromUtf8(Text, Mark == kBigEndianMark);
}

std::string NewProfileText(const std::vector<ProfileEntry>& entries) {
  std::string text;
  std::string_view section;
  for (const ProfileEntry& entry : entries) {
    if (text.empty() || entry.Section != section) {
      section = entry.Section;
      text += Concatenated({"[", section, "]", kLineEnds});
    }
    text += Concatenated({entry.Key, "=", entry.Value, kLineEnds});
  }
  return text;
}

}  // namespace marlex
