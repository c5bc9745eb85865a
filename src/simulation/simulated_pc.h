#pragma once

#include <functional>
#include <string>

#include "platform/pc.h"
#include "simulation/journal.h"
#include "simulation/memory_disk.h"
#include "simulation/memory_profiles.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_media_check.h"
#include "simulation/simulated_mixer.h"
#include "simulation/simulated_process.h"
#include "simulation/simulated_serial.h"
#include "simulation/simulated_song_player.h"
#include "simulation/simulated_sound_health.h"
#include "simulation/simulated_system_log.h"
#include "simulation/simulated_wave_player.h"
#include "simulation/virtual_clock.h"
#include "simulation/virtual_loop.h"

namespace marlex {

/// A PC in memory: every port of the system, on a virtual clock.
///
/// Before a system that has run on it is destroyed, stop it with `Kill`, since its stack may be
/// inside a wait.
struct SimulatedPc {
  SimulatedPc();
  ~SimulatedPc() { Kill(); }  // while all members still exist
  SimulatedPc(const SimulatedPc&) = delete;
  SimulatedPc& operator=(const SimulatedPc&) = delete;

  /// Ends the system's process wherever it is, as a power cut does. Does nothing when it has
  /// already ended.
  void Kill() { Loop.Kill(); }

  /// Kills what is still running and prepares for another system. Files, levels, the clock, plugs
  /// and the journal are kept.
  void Restart();

  /// What the speakers play at this moment, as "song march.mp3 at 20000", "wav door.wav at 0",
  /// "microphone at 0", several of them joined by " + ", or "silence". The figure is the slider
  /// position of the sound's line, 0 (full) to 65534; 65535 counts as silence, as does a muted
  /// line, or a silent or muted master.
  std::string Heard() const;

  /// The ports to hand to a system, as `Between` leaves them.
  marlex::Pc Ports();

  /// The same with other files.
  marlex::Pc Ports(ProfileFiles& profiles, Directories& files);

  /// Puts ports of the test between this PC and each system that runs on it, if it is set.
  std::function<marlex::Pc(const marlex::Pc& pc)> Between;

  VirtualLoop Loop;
  VirtualClock Clock{Loop};
  marlex::Journal Journal{Loop};
  MemoryDisk Disk;
  MemoryProfiles Profiles{Disk, Journal};
  SimulatedSerial Serial{Loop, Journal};
  SimulatedWavePlayer Wav{Loop, Disk, Journal, "wav"};             // plays sounds
  SimulatedWavePlayer WavControl{Loop, Disk, Journal, "control"};  // measures lengths
  SimulatedSongPlayer Song{Loop, Disk, Journal};
  SimulatedSoundHealth Sound;
  SimulatedMediaCheck Media{Disk};
  SimulatedMixer Mixer{Journal};
  SimulatedDialogs Dialogs{Loop, Journal};
  SimulatedProcess Process{Loop, Journal};
  SimulatedSystemLog Log{Journal};

 private:
  void ReportFailures();
};

}  // namespace marlex
