#include "state/record.h"

#include <utility>

namespace marlex {
namespace {

const char* NameOf(LossReason reason) {
  switch (reason) {
    case LossReason::Call:
      return "call";
    case LossReason::Takeover:
      return "takeover";
    case LossReason::Announcement:
      return "announcement";
    case LossReason::WaitingRow:
      return "waiting row";
    case LossReason::Editor:
      return "editor";
    case LossReason::OtherRow:
      return "other row";
    case LossReason::NextRow:
      return "next row";
    case LossReason::Fade:
      return "fade";
    case LossReason::Clock:
      return "clock";
    case LossReason::Held:
      break;
  }
  return "schedule held";
}

/// " in 1 3"; empty without any zone.
std::string NumbersOf(const Zones& zones) {
  std::string numbers;
  for (std::size_t zone = 0; zone < zones.size(); ++zone) {
    if (zones[zone]) numbers += " " + std::to_string(zone + 1);
  }
  return numbers.empty() ? "" : " in" + numbers;
}

std::string NameOf(const RecordedRow& row) { return "row " + row.Time + " " + row.Messages; }

}  // namespace

void Record::RowFires(const RecordedRow& row, const Zones& zones) {
  RowIsDropped(LossReason::NextRow);
  Row = NameOf(row);
  RowZones = zones;
  RowIsOn = false;
}

void Record::RowWaits() { WriteRow("wait"); }

void Record::RowPlays() {
  RowIsOn = true;
  WriteRow("play" + NumbersOf(RowZones));
}

void Record::MessageIsRefused(const std::string& fileName) { WriteRow("refuse " + fileName); }

void Record::RowEnds() {
  WriteRow("end");
  Row.clear();
}

void Record::RowIsDropped(LossReason reason) {
  WriteRow((RowIsOn ? "cut off, " : "lost, ") + std::string(NameOf(reason)));
  Row.clear();
}

void Record::RowsAreLost(const std::vector<RecordedRow>& rows, LossReason reason) {
  for (const RecordedRow& row : rows) Write(NameOf(row) + ": lost, " + NameOf(reason));
}

void Record::SongPlays(const std::string& fileName) { Write("music: play " + fileName); }

void Record::MusicStops() { Write("music: stop"); }

void Record::ClockStartsMusic() { Write("music: play, clock"); }

void Record::ClockStopsMusic() { Write("music: stop, clock"); }

void Record::CallBegins(const Zones& zones) {
  CallIsOn = true;
  Write("call: begin" + NumbersOf(zones));
}

void Record::CallIsRefused() { Write("call: refuse, takeover"); }

void Record::MicrophoneOpens() { Write("call: speak"); }

void Record::CallEnds() {
  if (std::exchange(CallIsOn, false)) Write("call: end");
}

void Record::StatusIs(int status) {
  if (std::exchange(Status, status) != status) Write("amplifier: status " + std::to_string(status));
}

void Record::Takeover() {
  Write("amplifier: takeover");
  RowIsDropped(LossReason::Takeover);
  if (std::exchange(CallIsOn, false)) Write("call: cut off, takeover");
}

void Record::ProgramStarts() { Write("program: start"); }

void Record::ProgramExits() { Write("program: exit"); }

void Record::FaultComes(const std::string& fault) { Write("fault: " + fault); }

void Record::FaultGoes(const std::string& fault) { Write("fault over: " + fault); }

void Record::WriteRow(const std::string& what) {
  if (!Row.empty()) Write(Row + ": " + what);
}

}  // namespace marlex
