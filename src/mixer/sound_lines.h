#pragma once

#include "mixer/mixer_access.h"
#include "windows/frm_mxr.h"

namespace marlex {

/// What the program does with its lines: the master, the wave line, on which
/// songs, messages and chimes play, and the microphone. A position is that of a slider, from 0, the
/// loudest, to `FrmMxr::kSilent`, silence.
///
/// Each setter sets a slider or a mute check box of the hidden panel, and `MixerAccess` passes the
/// change on to the card; setting an equal value does nothing. If the card has no wave output, the
/// wave line is the master. Without a microphone, its setters do nothing.
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

  // Give a slider of a window the range of a line's. Without a microphone, its range is the
  // master's.
  void CopyMasterRange(Slider& slider) const { CopyRange(0, slider); }
  void CopyWaveRange(Slider& slider) const { CopyRange(Mixer.WaveLine, slider); }
  void CopyMicrophoneRange(Slider& slider) const { CopyRange(Mixer.MicLine, slider); }

 private:
  void CopyRange(int line, Slider& slider) const {
    slider.Min = Panel.SldrVol[line].Min.Get();
    slider.Max = Panel.SldrVol[line].Max.Get();
  }

  FrmMxr& Panel;
  const MixerAccess& Mixer;
};

}  // namespace marlex
