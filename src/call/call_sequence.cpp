#include "call/call_sequence.h"

namespace marlex {

CallSequence::CallSequence(Flags& flags, SettingsStore& store, EventLoop& loop, FrmMain& frmMain,
                           FrmPlayers& frmPlayers, FrmMxr& frmMxr, MixerAccess& mixer,
                           ZoneRouting& routing, Fades& fades, MusicPlayer& music,
                           const StringTable& strings)
    : TheFlags(flags),
      Store(store),
      Loop(loop),
      TheFrmMain(frmMain),
      TheFrmPlayers(frmPlayers),
      TheFrmMxr(frmMxr),
      Mixer(mixer),
      Routing(routing),
      TheFades(fades),
      Music(music),
      Strings(strings) {
  for (CommandButton* key : {&frmMain.cmdCall, &frmMain.cmdCall2}) {
    key->OnMouseDown = [this](MouseButton button) {
      if (button == MouseButton::Left) StartCall();
    };
    key->OnMouseUp = [this](MouseButton button) {
      if (button == MouseButton::Left) EndCall();
    };
  }
  frmPlayers.tmrFlash.OnTimer = [this] { FlashLamps(); };
}

void CallSequence::StartCall() {
  if (TheFlags.CallActive || TheFlags.PriorityPreempted || !TheFlags.PriorityClear) return;
  CutMessagesOff();
  if (!GoesOn()) return;
  if (MusicState() == kPlaying && !ClearMusic()) return;
  if (TheFlags.PriorityPreempted) return;
  PastItsFade = true;
  RouteCall();
  if (!PlayPreChime()) return;
  OpenMicrophone();
}

/// A call goes before messages: one that plays is cut off, and the runner of the messages gets the
/// time to see it and leave.
void CallSequence::CutMessagesOff() {
  TheFrmPlayers.WavPlayer.Command("Close");
  TheFrmPlayers.lstMsgSequence.Clear();
  TheFrmPlayers.tmrMessage.Enabled = false;
  TheFlags.CallActive = true;
  CutPreviewOff();
  ++Calls;
  PreChimeStarted = false;
  PastItsFade = false;
  ReleasedInFade = false;
  Loop.Pump();
  Loop.Pump();
}

/// False when the release or the amplifier has ended the call while the events were delivered: the
/// microphone must not open any more. A release that fell into the fade of another has turned that
/// one round, as it would turn the call's own.
bool CallSequence::GoesOn() {
  if (ReleasedInFade) TakeReleaseInFade();
  if (TheFlags.CallActive) return true;
  const bool released = !TheFlags.PriorityPreempted;
  if (released && !Store.Values.PreChime.empty()) TheFlags.CallEndedDuringChime = false;
  return false;
}

/// Fades the music and pauses it. False when the release or the amplifier has ended the call in the
/// fade, or when what waits on top of it, as a box does, has held it until another call began.
bool CallSequence::ClearMusic() {
  if (TheFlags.MessagePlaying) {
    TheFlags.MessagePlaying = false;
  } else if (Store.Values.FadeTime > 0) {
    TheFrmPlayers.tmrFlash.Enabled = true;
    SetCaptions(kStrWait);
    const int call = Calls;
    TheFades.FadeDown();
    if (TheFlags.PriorityPreempted || call != Calls) return false;
    TakeReleaseInFade();
    if (!TheFlags.CallActive) return false;
  }
  if (MusicState() == kPlaying) TheFrmPlayers.MP3Player.Pause();
  return true;
}

/// A release in the fade has turned it round and left the end of the call to the press.
void CallSequence::TakeReleaseInFade() {
  if (!TheFlags.CallEndedDuringFade) return;
  TheFlags.CallEndedDuringFade = false;
  TheFrmPlayers.tmrMessage.Enabled = true;
  TheFlags.CallActive = false;
}

void CallSequence::RouteCall() {
  if (!Store.Values.RouterPresent) return;
  if (TheFlags.AmplifierStatus != 0) TheFrmPlayers.SendReleaseByte();
  Routing.ShowCallZones();
}

/// False when the release or the amplifier has ended the call meanwhile. A release that an earlier
/// call without a pre-chime has left in its flag counts as well. This is meant.
bool CallSequence::PlayPreChime() {
  if (Store.Values.PreChime.empty()) return true;
  TheFrmPlayers.tmrFlash.Enabled = true;
  SetCaptions(kStrWait);
  PreChimeStarted = true;
  if (!PlayChime(Store.Values.PreChime)) return false;
  if (TheFlags.CallEndedDuringChime) {
    TheFlags.CallEndedDuringChime = false;
    TheFlags.CallActive = false;
  } else if (TheFlags.PriorityPreempted) {
    TheFrmMain.cmdCall.Caption = Strings.LoadString(kStrCall);
    TheFrmPlayers.tmrFlash.Enabled = false;
  }
  if (!TheFlags.CallActive) return false;
  PaintLamps(kDarkGreen);
  return true;
}

/// The microphone reaches the output through the sound card's mixer.
void CallSequence::OpenMicrophone() {
  TheFrmPlayers.tmrFlash.Enabled = false;
  PaintLamps(kGreen);
  SetCaptions(kStrSpeak);
  TheFrmMxr.ChkMute[Mixer.WaveLine].Value = FrmMxr::kMuted;
  if (Mixer.MicLine != 0) TheFrmMxr.ChkMute[Mixer.MicLine].Value = FrmMxr::kOpen;
}

void CallSequence::EndCall() {
  if (!TheFlags.CallActive) return;
  SetCaptions(kStrWait);
  if (TheFlags.FadeRunning && !PastItsFade) {
    EndInFade();
    return;
  }
  PastItsFade = false;
  if (!TheFlags.WavFinished) TheFlags.CallEndedDuringChime = true;
  if (Mixer.MicLine != 0) TheFrmMxr.ChkMute[Mixer.MicLine].Value = FrmMxr::kMuted;
  // A pre-chime that has begun always plays to its end.
  const int call = Calls;
  if (PreChimeStarted) Loop.PumpUntil([this] { return TheFlags.WavFinished; });
  if (call != Calls || !PlayPostChime()) return;
  SetCaptions(kStrCall);
  if (!RestoreRouting()) return;
  PaintLamps(kButtonFace);
  RestoreMusic();
  // The next call may have begun in the fade, after another release that has ended this one.
  if (call != Calls) return;
  TheFrmMxr.ChkMute[Mixer.WaveLine].Value = FrmMxr::kOpen;
  TheFlags.CallActive = false;
  TheFrmPlayers.tmrMessage.Enabled = true;
  TheFrmMain.cmdPlay.Enabled = true;
  TheFrmMain.cmdSkip.Enabled = true;
  TheFrmMain.cmdStop.Enabled = true;
}

/// The fade of the press turns round; the press ends the call when its wait is over.
void CallSequence::EndInFade() {
  TheFlags.CallEndedDuringFade = true;
  ReleasedInFade = true;
  TheFades.FadeUp();
  SetCaptions(kStrCall);
  TheFrmPlayers.tmrFlash.Enabled = false;
  TheFrmPlayers.tmrMessage.Enabled = true;
  PaintLamps(kButtonFace);
}

/// False when another call has begun meanwhile.
bool CallSequence::PlayPostChime() {
  if (TheFlags.CallEndedDuringChime || Store.Values.PostChime.empty()) return true;
  TheFrmPlayers.tmrFlash.Enabled = true;
  if (!PlayChime(Store.Values.PostChime)) return false;
  PaintLamps(kButtonFace);
  TheFrmPlayers.tmrFlash.Enabled = false;
  return true;
}

/// False when the amplifier has taken over, to which the outputs then belong. Over music that the
/// call has paused it is the release that goes out. This is meant.
bool CallSequence::RestoreRouting() {
  if (!Store.Values.RouterPresent) return true;
  if (TheFlags.PriorityPreempted) {
    TheFrmPlayers.tmrMessage.Enabled = true;
    return false;
  }
  Routing.ApplyMusicRouting();
  if (MusicState() == kPlaying) {
    Routing.RequestRouting();
  } else {
    TheFrmPlayers.SendReleaseByte();
  }
  return true;
}

void CallSequence::RestoreMusic() {
  const bool resumed = MusicState() != kStopped;
  if (resumed) Music.PlaySong();
  if (resumed && Store.Values.FadeTime > 0) {
    TheFrmMxr.ChkMute[Mixer.WaveLine].Value = FrmMxr::kOpen;
    TheFrmMxr.SldrVol[Mixer.WaveLine].Value = FrmMxr::kSilent;
    TheFades.FadeUp();
  } else {
    TheFrmMxr.SldrVol[Mixer.WaveLine].Value = Store.Values.MusicVolume;
  }
}

/// The chime has the line alone. Returns when it has ended, or when the release or the amplifier
/// has ended the call. False when another call has begun meanwhile, whose chime it is that sounds.
bool CallSequence::PlayChime(const std::string& chime) {
  const int call = Calls;
  WavePlayer& player = TheFrmPlayers.WavPlayer;
  player.FileName = Store.Values.MessageDirectory + chime + ".wav";
  player.Command("Close");
  player.Command("Open");
  TheFlags.WavFinished = false;
  player.Command("Play");
  TheFrmMxr.SldrVol[Mixer.WaveLine].Value = Store.Values.MessageVolume;
  TheFrmMxr.ChkMute[0].Value = FrmMxr::kOpen;
  TheFrmMxr.ChkMute[Mixer.WaveLine].Value = FrmMxr::kOpen;
  if (Mixer.MicLine != 0) TheFrmMxr.ChkMute[Mixer.MicLine].Value = FrmMxr::kMuted;
  Loop.Pump();
  Loop.PumpUntil([this] {
    return TheFlags.WavFinished || TheFlags.CallEndedDuringChime || TheFlags.PriorityPreempted;
  });
  if (call != Calls) return false;
  if (TheFlags.CallEndedDuringChime) {
    TheFrmPlayers.tmrFlash.Enabled = false;
    PaintLamps(kButtonFace);
  } else if (TheFlags.CallActive) {
    TheFrmMxr.ChkMute[Mixer.WaveLine].Value = FrmMxr::kMuted;
  }
  return true;
}

void CallSequence::SetCaptions(StringId caption) {
  TheFrmMain.cmdCall.Caption = Strings.LoadString(caption);
  TheFrmMain.cmdCall2.Caption = Strings.LoadString(caption);
}

void CallSequence::PaintLamps(Color color) {
  TheFrmMain.lblBusy[0].BackColor = color;
  TheFrmMain.lblBusy[1].BackColor = color;
}

void CallSequence::FlashLamps() {
  PaintLamps(TheFrmMain.lblBusy[0].BackColor == kGreen ? kButtonFace : kGreen);
}

}  // namespace marlex
