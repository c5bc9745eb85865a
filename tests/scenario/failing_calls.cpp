#include "scenario/failing_calls.h"

#include <memory>

#include "scenario/failing_ports.h"

namespace marlex {

namespace {

/// The ports of one run of the program.
struct FailingPc {
  FailingPc(FailingCalls& calls, SimulatedPc& pc)
      : Profiles(calls, pc.Profiles),
        Files(calls, pc.Disk),
        TolvoPort(calls, pc.Serial),
        WavPlayer(calls, pc.Wav, pc.Disk, "wav"),
        WavControl(calls, pc.WavControl, pc.Disk, "length"),
        MP3Player(calls, pc.Song, pc.Disk),
        Sound(calls, pc.Sound),
        Media(calls, pc.Media),
        Mixer(calls, pc.Mixer),
        Boxes(calls, pc.Dialogs) {}

  FailingProfiles Profiles;
  FailingDirectories Files;
  FailingSerial TolvoPort;
  FailingWavePlayer WavPlayer;
  FailingWavePlayer WavControl;
  FailingSongPlayer MP3Player;
  FailingSoundHealth Sound;
  FailingMediaCheck Media;
  FailingMixer Mixer;
  FailingDialogs Boxes;
};

}  // namespace

void FailingCalls::StandBetween(SimulatedPc& pc) {
  Log = &pc.Journal;
  pc.Between = [this, &pc, ports = std::shared_ptr<FailingPc>()](const Pc& own) mutable {
    ports = std::make_shared<FailingPc>(*this, pc);
    return Pc{.Loop = own.Loop,
              .Clock = own.Clock,
              .Profiles = ports->Profiles,
              .Files = ports->Files,
              .TolvoPort = ports->TolvoPort,
              .WavPlayer = ports->WavPlayer,
              .WavControl = ports->WavControl,
              .MP3Player = ports->MP3Player,
              .Sound = ports->Sound,
              .Media = ports->Media,
              .Mixer = ports->Mixer,
              .Boxes = ports->Boxes,
              .TheProcess = own.TheProcess,
              .Log = own.Log};
  };
}

bool FailingCalls::Fails(const char* operation) {
  if (Healed) return false;
  const int count = ++Counted[operation];
  if (count != ThePlan.At || operation != ThePlan.Operation) return false;
  Log->Write("fault", operation);
  Failed = true;
  return true;
}

}  // namespace marlex
