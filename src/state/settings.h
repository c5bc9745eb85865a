#pragma once

#include <array>
#include <string>

#include "amplifier/bytes.h"

namespace marlex {

// The two durations of a fade.
inline constexpr int kSlowFadeTimeMs = 1500;
inline constexpr int kFastFadeTimeMs = 500;

/// Values read from the profile files, under the names used throughout the system. Volumes are
/// slider positions: 0 is loudest, 65535 is silence.
struct Settings {
  std::string MusicDirectory;    // with a final separator
  std::string MessageDirectory;  // likewise
  std::array<std::string, kZones> ZoneNames;
  std::string PreChime;   // file name without directory and extension; empty for no chime
  std::string PostChime;  // likewise
  std::string ComPortSetting;
  bool RouterPresent = false;
  std::string PriorityLevelText;  // "High" or "Low"
  int OwnPriorityLevel = kLowPriority;
  int MusicVolume = 0;
  int MessageVolume = 0;
  int MasterVolume = 0;
  int MicroVolume = 0;
  int CdVolume = 0;    // read like the others, but unused
  int FadeTime = 500;  // milliseconds, 1500 or 500
  bool AllDaysView = false;
  bool ScheduleNameView = false;
  std::string MusicRouting;  // six characters; "1" for a zone that is on
  std::string CallRouting;   // likewise
  std::string CurrentPlaylistFile;
  std::string SequencePath;

  // From the current playlist file.
  std::string MusicStartTime;  // "HH:MM" or empty
  std::string MusicStopTime;   // likewise
  std::string MusicWeekDays;   // seven characters, Monday first; "0" for a day that is off
  bool MusicAutostart = false;
  bool MusicScheduled = false;
  int LastSongIndex = 0;  // at the start of the program
  std::string MusicLabelText;

  std::string OperatingSystemText;  // determined once, but unused
};

}  // namespace marlex
