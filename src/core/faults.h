#pragma once

#include <string>
#include <vector>

#include "core/clock_watch.h"
#include "core/plan_media.h"
#include "i18n/string_table.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"
#include "platform/sound_health.h"
#include "schedule/schedule_tick.h"
#include "state/record.h"
#include "state/settings_store.h"

namespace marlex {

enum class FaultKind {
  NoSound,
  PretendedSound,
  NoMicrophone,
  NoSerialLine,
  NotWritten,
  ClockJumped,
  ScheduleStopped,
  MediumMissing,
  MediumUnplayable,
};

/// What is wrong at the moment, and with what.
struct Fault {
  FaultKind Kind = FaultKind::NoSound;
  std::string Detail;  // a port, a file, the times of a jump; empty for most kinds

  bool operator==(const Fault&) const = default;
};

/// Looks once a second for what is wrong, so that somebody may mend it before an announcement is
/// missed: goes by the state and by what the ports report, writes only to the record, and has no
/// influence on anything else.
class Faults {
 public:
  Faults(EventLoop& loop, SoundHealth& sound, const SerialPort& port, const SettingsStore& store,
         const ScheduleTick& tick, ClockWatch clock, PlanMedia media, Record& record,
         const StringTable& strings);
  ~Faults();
  Faults(const Faults&) = delete;
  Faults& operator=(const Faults&) = delete;

  /// The files of the plan, as they are watched.
  PlanMedia& Plan() { return Media; }

  /// A text for each fault, the newest first; none when all is well.
  std::vector<std::string> Texts() const;

 private:
  void Look();
  std::vector<Fault> Present() const;
  void AddSound(std::vector<Fault>& present) const;

  EventLoop& Loop;
  SoundHealth& Sound;
  const SerialPort& Port;
  const SettingsStore& Store;
  const ScheduleTick& Tick;
  ClockWatch Clock;
  PlanMedia Media;
  Record& TheRecord;
  const StringTable& Strings;
  int LooksUntilMedia = 0;
  std::vector<BadMedium> BadMedia;  // found last
  std::vector<Fault> Known;         // the newest first
  const EventLoop::TimerId Timer;
};

}  // namespace marlex
