#pragma once

#include <optional>
#include <string>

namespace marlex {

/// The texts of the windows and boxes, by id; faults for which no text has an id are said in
/// English where they are found. Each language has a block of numbers with the same ids in it:
/// `LanguageBase`, the base of the chosen language, plus an id is the number of its text.
class StringTable {
 public:
  int LanguageBase = 0;

  /// Text of `id` in the chosen language; empty optional if there is none.
  std::optional<std::string> Find(int id) const;

  /// The same; throws `RuntimeFailure` if there is none.
  std::string LoadString(int id) const;

  /// The same in English, whatever the chosen language.
  static std::string LoadEnglish(int id);
};

/// Ids of the texts that the code uses by name.
enum StringId : int {
  kStrPlaylistEditor = 12,
  kStrScheduleEditor = 18,
  kStrTime = 22,
  kStrDays = 24,
  kStrSchedule = 26,
  kStrMessageInfo = 28,
  kStrCancel = 36,
  kStrSettings = 42,
  kStrChimeSelection = 44,
  kStrNoMusicDirectory = 46,
  kStrProblem = 48,
  kStrInfo = 52,
  kStrWarning = 58,
  kStrError = 101,
  kStrBackgroundMusicPlaylist = 170,
  kStrTimeSchedule = 180,
  kStrToday = 181,
  kStrAllDays = 182,
  kStrDoubleClickToPlay = 190,
  kStrPlay = 230,
  kStrStop = 250,
  kStrCall = 260,
  kStrWait = 262,
  kStrSpeak = 263,
  kStrMessageSchedule = 340,
  kStrSurfTo = 570,
  kStrNearestContact = 580,
  kStrAbout = 590,
  kStrClose = 600,
  kStrPlaylist = 660,
  kStrSelect = 761,  // the French block has none
  kStrRouting = 860,
  kStrWeekdayHeader = 871,
  kStrHoursEmpty = 1020,
  kStrMinutesEmpty = 1030,
  kStrNoMessagesSelected = 1040,
  kStrNoWeekdaySelected = 1050,
  kStrHoursCharacters = 1070,
  kStrMinutesCharacters = 1080,
  kStrHoursValue = 1090,
  kStrMinutesValue = 1100,
  kStrOpenConfiguration = 1120,
  kStrNoSongsSelected = 1130,
  kStrStartHoursEmpty = 1140,
  kStrStartMinutesEmpty = 1150,
  kStrStopHoursEmpty = 1160,
  kStrStopMinutesEmpty = 1170,
  kStrNoMusicDirectoryFound = 1200,
  kStrNoMessageDirectoryFound = 1210,
  kStrNoMusicDirectoryEntered = 1220,
  kStrNoMessageDirectoryEntered = 1230,
  kStrNoMixer = 1270,
  kStrPossibleCauses = 1280,
  kStrNoSoundCard = 1290,
  kStrTerminating = 1300,
  kStrCannotOpenMixer = 1310,
  kStrNoMixerCaps = 1320,
  kStrHigherPriorityCall = 1330,
  kStrLowerPriorityCall = 1340,
  kStrTimeSetting = 1350,
  kStrTimeAndZoneSetting = 1360,
  kStrTimeConflict = 1370,
  kStrScheduleStopped = 1400,
  kStrFileNotFound = 1410,
  kStrFileExists = 1420,
  kStrReplace = 1430,
  kStrUnusableSchedules = 1440,
  kStrIncompleteWeekdays = 1450,
  kStrVolumesNoNumbers = 1460,
  kStrSettingsNotSaved = 1470,
  kStrPortNotOpened = 1480,
  kStrOk = 1500,
  kStrFileNotSaved = 1510,
  kStrStarts = 1520,
  kStrFolder = 1530,
  kStrFileName = 1540,
  kStrFileType = 1550,
  kStrOpen = 1560,
  kStrSave = 1570,
  kStrBack = 1580,
  kStrForward = 1590,
  kStrParentFolder = 1600,
  kStrTooManyItems = 1610,
  kStrNoLowerBound = 1620,
  kStrTooManyHours = 1630,
  kStrNumberMissing = 1640,
  kStrNoInterval = 1650,
  kStrTooFewDigits = 1660,
  kStrNoScheduleChosen = 1670,
  kStrTooManyRows = 1680,
  kStrNoSoundDevice = 1700,
  kStrPretendedSoundDevice = 1710,
  kStrMicrophoneGone = 1720,
  kStrMediumMissing = 1730,
  kStrMediumUnplayable = 1740,
  kStrClockJumped = 1750,
};

}  // namespace marlex
