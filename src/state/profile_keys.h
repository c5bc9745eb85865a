#pragma once

#include <string>
#include <string_view>

#include "text/profile_text.h"

namespace marlex {

/// Where a value is in a profile file, in the spelling in which it is written; reading is blind to
/// the case of both.
struct ProfileKey {
  std::string_view Section;
  std::string_view Key;
};

inline ProfileEntry EntryOf(const ProfileKey& key, std::string value) {
  return {std::string(key.Section), std::string(key.Key), std::move(value)};
}

/// Every key of every file that the program keeps.
namespace keys {

// Tolvo.ini, the settings.
inline constexpr ProfileKey kLanguage{"User language", "Language"};
inline constexpr ProfileKey kMusicDirectory{"Selected paths", "Music directory"};
inline constexpr ProfileKey kMessageDirectory{"Selected paths", "Message directory"};
inline constexpr ProfileKey kMusicVolume{"Volume", "Music volume"};
inline constexpr ProfileKey kMessageVolume{"Volume", "Message volume"};
inline constexpr ProfileKey kMasterVolume{"Volume", "Master volume"};
inline constexpr ProfileKey kMicroVolume{"Volume", "Micro volume"};
inline constexpr ProfileKey kCdVolume{"Volume", "CD volume"};
inline constexpr ProfileKey kFadeTime{"Volume", "Fade time"};         // "Slow" or "Fast"
inline constexpr ProfileKey kRouter{"Selected type", "QRT4410/20"};   // "Yes" or "No"
inline constexpr ProfileKey kComPort{"Used com port", "Com port"};    // "1" or "2"
inline constexpr ProfileKey kPriority{"Priority level", "Priority"};  // "High" or "Low"
inline constexpr ProfileKey kPreChime{"Chime selection", "PreChime"};
inline constexpr ProfileKey kPostChime{"Chime selection", "PostChime"};
inline constexpr ProfileKey kMusicRouting{"Routing", "Music routing"};
inline constexpr ProfileKey kCallRouting{"Routing", "Call routing"};
inline constexpr ProfileKey kAllDaysView{"Schedule", "All days"};   // "Yes" or "No"
inline constexpr ProfileKey kScheduleNameView{"Schedule", "View"};  // likewise
inline constexpr ProfileKey kCurrentPlaylist{"Playlist", "Current List"};
inline constexpr ProfileKey kSequenceList{"Current sequence list", "Sequence list"};
inline constexpr ProfileKey kSequencePath{"Current sequence list", "Sequence path"};

inline constexpr std::string_view kZoneNames = "Zone names";  // a section
inline std::string ZoneName(int zone) { return "Zone:" + std::to_string(zone + 1); }

// A playlist.
inline constexpr ProfileKey kSongs{"Playlist", "Song:"};  // with 1, 2 and so on after it
inline constexpr ProfileKey kLastSong{"Last played", "Last song"};
inline constexpr ProfileKey kStartTime{"Background music", "Start time"};
inline constexpr ProfileKey kStopTime{"Background music", "Stop time"};
inline constexpr ProfileKey kMusicWeekdays{"Background music", "Weekdays"};
inline constexpr ProfileKey kAutostart{"Background music", "Autostart"};  // "True" or "False"

// A message sequence.
inline constexpr ProfileKey kMessages{"Schedule", "Message(s)"};  // without extension, with commas
inline constexpr ProfileKey kHours{"Schedule", "Hour(s)"};        // "8-10,14"
inline constexpr ProfileKey kMinutes{"Schedule", "Minute(s)"};    // "00,30"
inline constexpr ProfileKey kSequenceWeekdays{
    "Schedule", "Weekday(s)"};  // "1030500": Monday, Wednesday, Friday
inline constexpr ProfileKey kRowZones{"Schedule", "Zone(s)"};  // "103000": zones 1 and 3
inline constexpr ProfileKey kTimer{"Schedule", "Timer"};       // "Exact" or "Between"

// Functionkeys.ini: the keys of each section.
inline std::string FunctionKey(int key) { return "Function key " + std::to_string(key); }
inline constexpr std::string_view kKeyMessages = "Schedule";
inline constexpr std::string_view kKeyRouting = "Routing";
inline constexpr std::string_view kKeyDescription = "Description";

}  // namespace keys
}  // namespace marlex
