#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace marlex {

/// The books of a year: each row that was due is set against what became of it, and each message
/// and chime against what asked for it, and songs against the hours of the playlists. What does not
/// balance is a `BrokenRule`.
class YearLedger {
 public:
  /// A row, as the record names it, is due in this minute.
  void Due(const std::string& row) { ++DueRows[row]; }

  /// A line of the journal, which has the categories record, wav and song.
  void Post(const std::string& line);

  /// Balances the books of a day. No row may still play or wait.
  void CloseDay();

  std::int64_t Rows = 0;                      // that were due
  std::int64_t Played = 0;                    // to their end
  std::map<std::string, std::int64_t> Fates;  // of the others, such as "lost, call"
  std::int64_t Nights = 0;                    // announcements between midnight and four
  std::int64_t Calls = 0;                     // in which the operator spoke
  std::int64_t Songs = 0;                     // that began

 private:
  void PostRecord(const std::string& line);
  void PostFate(const std::string& row, const std::string& fate);
  void PostRowsSound(const std::string& fileName);
  void PostSound(const std::string& fileName);

  std::map<std::string, int> DueRows;                        // of the day
  std::map<std::string, std::vector<std::string>> DayFates;  // of the day's rows
  std::string Playing;                                       // row
  std::vector<std::string> Expected;                         // files it has still to play
  bool CallIsOn = false;
};

}  // namespace marlex
