#pragma once

#include <string>
#include <vector>

#include "amplifier/zones.h"
#include "platform/system_log.h"

namespace marlex {

/// Why a row was not announced, or not to its end.
enum class LossReason {
  Call,          // the operator's
  Takeover,      // a call of the amplifier's
  Announcement,  // of another row
  WaitingRow,    // another row was waiting for the music break
  Editor,        // the sequence editor was open
  OtherRow,      // another row of the same minute comes first
  NextRow,       // it was still waiting when the next one fired
  Fade,          // of the music lasted until the minute was over
  Clock,         // the minute never came: the clock was set, or the machine stood still
  Held,          // the schedule was held by something that is over
};

/// A row of the schedule: its time, with a "+" if it waits for the music break, and its messages.
struct RecordedRow {
  std::string Time;
  std::string Messages;
};

/// The record that answers why something did or did not play: a line in the system's log for each
/// announcement, call, takeover, start and stop of the music, fault and recovery, and for each row
/// that was lost, with the reason. Holds names of files, zones and times only. Changes nothing
/// else.
///
/// A line is a subject, such as "row 12:01 welcome" or "call", and what became of it. All
/// lines are in English, whatever the language of the windows.
class Record {
 public:
  explicit Record(SystemLog& log) : Log(log) {}

  // The row that fired last, until its announcement is over.

  /// A row has fired. One that is still waiting is lost.
  void RowFires(const RecordedRow& row, const Zones& zones);
  void RowWaits();  // for the music break
  void RowPlays();
  void MessageIsRefused(const std::string& fileName);
  void RowEnds();

  /// The row's messages have been dropped. No effect when no row is playing or about to play.
  void RowIsDropped(LossReason reason);

  /// Rows that have not fired, and will not.
  void RowsAreLost(const std::vector<RecordedRow>& rows, LossReason reason);

  // The music.

  void SongPlays(const std::string& fileName);  // by the operator or the clock
  void MusicStops();                            // by the operator
  void ClockStartsMusic();
  void ClockStopsMusic();

  // The operator's call.

  void CallBegins(const Zones& zones);
  void CallIsRefused();  // because of a call of the amplifier's
  void MicrophoneOpens();
  void CallEnds();  // no effect when none is in progress

  // The amplifier.

  void StatusIs(int status);  // no effect unless it is another one than before
  void Takeover();            // cuts off a row and a call

  // What concerns the whole installation.

  void ProgramStarts();
  void ProgramExits();
  void FaultComes(const std::string& fault);
  void FaultGoes(const std::string& fault);

 private:
  void Write(const std::string& line) { Log.Write(line); }
  void WriteRow(const std::string& what);

  SystemLog& Log;
  std::string Row;       // time and messages of the row that fired last; empty when it is over
  Zones RowZones = {};   // into which it plays
  bool RowIsOn = false;  // it is playing
  bool CallIsOn = false;
  int Status = 0;  // of the amplifier
};

}  // namespace marlex
