#pragma once

#include "mixer/mixer_access.h"
#include "windows/frm_mxr.h"

namespace marlex {

/// What the desk does with the lines of the sound card: the master, the wave line, on which songs,
/// messages and chimes sound, and the microphone. A position is that of a slider, 0 the loudest and
/// `FrmMxr::kSilent` silence.
///
/// Each verb writes a slider or a mute check of the hidden panel, which passes it on to the card;
/// writing what stands there already does nothing. Where the card has no wave output of its own,
/// the wave line is the master. Without a microphone the verbs for it do nothing.
class SoundLines {
 public:
  SoundLines(FrmMxr& panel, const MixerAccess& mixer) : Panel(panel), Mixer(mixer) {}

  void OpenMaster() { Panel.ChkMute[0].Value = FrmMxr::kOpen; }
  void MuteMaster() { Panel.ChkMute[0].Value = FrmMxr::kMuted; }
  void SetMaster(int position) { Panel.SldrVol[0].Value = position; }

  void OpenWave() { Panel.ChkMute[Mixer.WaveLine].Value = FrmMxr::kOpen; }
  void MuteWave() { Panel.ChkMute[Mixer.WaveLine].Value = FrmMxr::kMuted; }
  void SetWave(int position) { Panel.SldrVol[Mixer.WaveLine].Value = position; }
  int Wave() { return Panel.SldrVol[Mixer.WaveLine].Value; }

  bool HasMicrophone() const { return Mixer.MicLine != 0; }
  void OpenMicrophone() {
    if (HasMicrophone()) Panel.ChkMute[Mixer.MicLine].Value = FrmMxr::kOpen;
  }
  void CloseMicrophone() {
    if (HasMicrophone()) Panel.ChkMute[Mixer.MicLine].Value = FrmMxr::kMuted;
  }
  void SetMicrophone(int position) {
    if (HasMicrophone()) Panel.SldrVol[Mixer.MicLine].Value = position;
  }

  // The sliders themselves, for who shows their ranges.
  Slider& MasterSlider() { return Panel.SldrVol[0]; }
  Slider& WaveSlider() { return Panel.SldrVol[Mixer.WaveLine]; }
  Slider& MicrophoneSlider() { return Panel.SldrVol[Mixer.MicLine]; }  // else the master's

 private:
  FrmMxr& Panel;
  const MixerAccess& Mixer;
};

}  // namespace marlex
