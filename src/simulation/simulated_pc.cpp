#include "simulation/simulated_pc.h"

#include <cstdint>

namespace marlex {

namespace {

constexpr std::uint32_t kFullLevel = 65535;

/// Adds one sound as it is heard through the line of its kind. On a mixer without that line, only
/// the master affects it.
void AddSound(std::string& heard, const SimulatedMixer& mixer, std::uint32_t lineType,
              const std::string& sound) {
  const std::uint32_t ownType = mixer.Line(lineType) ? lineType : kComponentSpeakers;
  if (mixer.Muted(ownType) || mixer.Level(ownType) == 0) return;
  if (!heard.empty()) heard += " + ";
  heard += sound + " at " + std::to_string(kFullLevel - mixer.Level(ownType));
}

}  // namespace

SimulatedPc::SimulatedPc() {
  Disk.AddDirectory(Process.Directory);
  ReportFailures();
}

marlex::Pc SimulatedPc::Ports() {
  const marlex::Pc own = Ports(Profiles, Disk);
  return Between ? Between(own) : own;
}

marlex::Pc SimulatedPc::Ports(ProfileFiles& profiles, Directories& files) {
  Media.Texts = &files;
  return {.Loop = Loop,
          .Clock = Clock,
          .Profiles = profiles,
          .Files = files,
          .TolvoPort = Serial,
          .WavPlayer = Wav,
          .WavControl = WavControl,
          .MP3Player = Song,
          .Sound = Sound,
          .Media = Media,
          .Mixer = Mixer,
          .Boxes = Dialogs,
          .TheProcess = Process,
          .Log = Log};
}

void SimulatedPc::Restart() {
  Loop.Restart();
  Loop.AfterEvent = nullptr;
  Loop.AfterTurn = nullptr;
  Serial.Reset();
  Wav.Reset();
  WavControl.Reset();
  Song.Reset();
  Mixer.Reset();
  Dialogs.Reset();
  Process.Reset();
  Media.Watch({});
  Log.OnLine = nullptr;
  ReportFailures();
}

std::string SimulatedPc::Heard() const {
  std::string heard;
  const bool master = !Mixer.Muted(kComponentSpeakers) && Mixer.Level(kComponentSpeakers) > 0;
  if (Loop.Ended() || !master) return "silence";
  if (Song.PlayState() == kPlaying) {
    AddSound(heard, Mixer, kComponentWaveOut, "song " + FileNameOf(Song.FileName()));
  }
  if (Wav.Mode() == kWavePlaying)
    AddSound(heard, Mixer, kComponentWaveOut, "wav " + FileNameOf(Wav.OpenFile()));
  if (Mixer.Line(kComponentMicrophone)) AddSound(heard, Mixer, kComponentMicrophone, "microphone");
  return heard.empty() ? "silence" : heard;
}

/// Records failures in the journal until a system handles them itself, so that none goes unnoticed.
void SimulatedPc::ReportFailures() {
  Loop.OnFailure = [this](const RuntimeFailure& failure) {
    Journal.Write("failure", failure.what());
  };
}

}  // namespace marlex
