#include "call/call_sequence.h"

#include <utility>

#include "state/media_names.h"

namespace marlex {

CallSequence::CallSequence(Flags& flags, const Settings& settings, EventLoop& loop,
                           FrmMain& frmMain, FrmPlayers& frmPlayers, SoundLines& lines,
                           ZoneRouting& routing, Fades& fades, MusicPlayer& music,
                           Previews& previews, Record& record, const StringTable& strings)
    : TheFlags(flags),
      TheSettings(settings),
      Loop(loop),
      TheFrmMain(frmMain),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      Routing(routing),
      TheFades(fades),
      Music(music),
      ThePreviews(previews),
      TheRecord(record),
      Strings(strings) {
  for (CommandButton* button : {&frmMain.cmdCall, &frmMain.cmdCall2}) {
    button->OnMouseDown = [this](MouseButton mouseButton) {
      if (mouseButton == MouseButton::Left) StartCall();
    };
    button->OnMouseUp = [this](MouseButton mouseButton) {
      if (mouseButton == MouseButton::Left) EndCall();
    };
  }
  frmPlayers.tmrFlash.OnTimer = [this] { FlashLamps(); };
}

void CallSequence::StartCall() {
  if (TheFlags.CallActive) return;
  if (TheFlags.PriorityPreempted || !TheFlags.PriorityClear) return TheRecord.CallIsRefused();
  const int call = BeginCall();
  CutMessagesOff();
  if (GoesOn(call)) FadeMusic();
  if (GoesOn(call)) PauseMusic();
  if (GoesOn(call)) RouteCall();
  if (GoesOn(call)) PlayPreChime(call);
  if (GoesOn(call)) {
    OpenMicrophone();
  } else {
    TakeRelease(call);
  }
}

void CallSequence::EndCall() {
  if (!TheFlags.CallActive || TheCall.Stage == CallStage::Ending) return;
  const int call = TheCall.Number;
  const CallStage stage = std::exchange(TheCall.Stage, CallStage::Ending);
  SetCaptions(kStrWait);
  const bool isBeforeChime = stage == CallStage::Beginning || stage == CallStage::Fading;
  if (TheFlags.FadeRunning && isBeforeChime) return EndInFade(call);
  NoteReleaseInChime(stage);
  Lines.CloseMicrophone();
  if (stage == CallStage::Chiming) AwaitPreChime();
  if (stage == CallStage::Speaking) PlayPostChime(call);
  if (!IsLast(call)) return;
  SetCaptions(kStrCall);
  if (!RestoreRouting()) return;
  TheFrmMain.PaintBusyLamps(kButtonFace);
  const bool isUntouched = stage == CallStage::Beginning && MusicState() == kPlaying;
  if (!isUntouched) RestoreMusic();
  if (!IsLast(call)) return;
  Lines.OpenWave();
  DarkenLamps();  // a press held up in its fade may have left them flashing
  TheFlags.CallActive = false;
  TheRecord.CallEnds();
  TheFrmPlayers.ResumeSchedule();
  TheFrmMain.EnableTransport(true);
}

/// Whether, after a wait of a press, the call is still its own and neither the release nor the
/// amplifier has ended it. If not, the microphone must not open.
bool CallSequence::GoesOn(int call) const {
  return IsLast(call) && TheFlags.CallActive && TheCall.Stage != CallStage::Ending;
}

int CallSequence::BeginCall() {
  TheFlags.CallEndedDuringFade = false;
  if (TheCall.ReleasedInChime) TheFlags.CallEndedDuringChime = false;
  TheCall = {.Number = TheCall.Number + 1};
  TheFlags.CallActive = true;
  TheRecord.CallBegins(ZonesOfRouting(TheSettings.CallRouting));
  return TheCall.Number;
}

/// A call takes precedence over messages: one that is playing is cut off. The pumps deliver what is
/// due; an announcement that waits further down the stack ends once the waits above it are over.
void CallSequence::CutMessagesOff() {
  TheFrmPlayers.WavPlayer.Command("Close");
  TheFrmPlayers.lstMsgSequence.Clear();
  TheRecord.RowIsDropped(LossReason::Call);
  TheFrmPlayers.HoldSchedule();
  ThePreviews.End();
  Loop.Pump();
  Loop.Pump();
}

void CallSequence::FadeMusic() {
  if (MusicState() != kPlaying) return;
  if (TheFlags.MessagePlaying) {
    TheFlags.MessagePlaying = false;
  } else if (TheSettings.FadeTime > 0) {
    TheCall.Stage = CallStage::Fading;
    TheFrmPlayers.tmrFlash.Enabled = true;
    SetCaptions(kStrWait);
    TheFades.FadeDown();
  }
}

void CallSequence::PauseMusic() {
  if (MusicState() == kPlaying) TheFrmPlayers.MP3Player.Pause();
}

/// From this stage on, a fade that is running is not the call's.
void CallSequence::RouteCall() {
  TheCall.Stage = CallStage::Chiming;
  if (!TheSettings.RouterPresent) return;
  if (TheFlags.AmplifierStatus != 0) Routing.Release();
  Routing.ShowCallZones();
}

void CallSequence::PlayPreChime(int call) {
  if (TheSettings.PreChime.empty()) return;
  TheFrmPlayers.tmrFlash.Enabled = true;
  SetCaptions(kStrWait);
  PlayChime(call, TheSettings.PreChime);
  if (!IsLast(call)) return;
  // Deliberate: a flag left by the release of an earlier call without a pre-chime ends this call
  // too.
  if (TheFlags.CallEndedDuringChime) TheCall.Stage = CallStage::Ending;
  if (GoesOn(call)) TheFrmMain.PaintBusyLamps(kDarkGreen);
}

/// Opens the microphone's line: no file is played for it.
void CallSequence::OpenMicrophone() {
  TheCall.Stage = CallStage::Speaking;
  TheFrmPlayers.tmrFlash.Enabled = false;
  TheFrmMain.PaintBusyLamps(kGreen);
  SetCaptions(kStrSpeak);
  Lines.MuteWave();
  Lines.OpenMicrophone();
  TheRecord.MicrophoneOpens();
}

/// Ends a call that was released before the microphone opened. Clears the flags that the release
/// has set, so that they end no later call or fade. A later call that has begun by now has cleared
/// them already.
void CallSequence::TakeRelease(int call) {
  if (!IsLast(call) || TheCall.Stage != CallStage::Ending) return;
  if (TheFlags.CallEndedDuringFade) {
    TheFlags.CallEndedDuringFade = false;
    TheFrmPlayers.ResumeSchedule();
    TheFlags.CallActive = false;
    TheRecord.CallEnds();
  } else if (!TheSettings.PreChime.empty()) {
    TheFlags.CallEndedDuringChime = false;
    TheFlags.CallActive = false;
    TheRecord.CallEnds();
    SetCaptions(kStrCall);
  }
}

/// Turns round the fade that the press is waiting for; the press ends the call when its wait is
/// over.
void CallSequence::EndInFade(int call) {
  TheFlags.CallEndedDuringFade = true;
  TheFades.FadeUp();
  if (!IsLast(call)) return;
  SetCaptions(kStrCall);
  TheFrmPlayers.ResumeSchedule();
  DarkenLamps();
}

/// Deliberate: without a pre-chime, a release while speaking counts as one in a chime if
/// `WavFinished` is still false, as before the first WAV file since the start. This call then has
/// no post-chime, nor has any later one until a call with a pre-chime.
void CallSequence::NoteReleaseInChime(CallStage stage) {
  const bool hasNoPreChime = stage == CallStage::Speaking && TheSettings.PreChime.empty();
  if (TheFlags.WavFinished || (stage != CallStage::Chiming && !hasNoPreChime)) return;
  TheCall.ReleasedInChime = stage == CallStage::Chiming;
  TheFlags.CallEndedDuringChime = true;
}

/// A pre-chime that has begun always plays to its end.
void CallSequence::AwaitPreChime() {
  Loop.PumpUntil([this] { return TheFlags.WavFinished; });
}

void CallSequence::PlayPostChime(int call) {
  if (TheFlags.CallEndedDuringChime || TheSettings.PostChime.empty()) return;
  TheFrmPlayers.tmrFlash.Enabled = true;
  PlayChime(call, TheSettings.PostChime);
  if (IsLast(call)) DarkenLamps();
}

/// False when the amplifier has taken over and owns the outputs. Deliberate: if the call has paused
/// the music, sends the release byte instead of the zones.
bool CallSequence::RestoreRouting() {
  if (!TheSettings.RouterPresent) return true;
  if (TheFlags.PriorityPreempted) {
    TheFrmPlayers.ResumeSchedule();
    return false;
  }
  Routing.ApplyMusicRouting();
  if (MusicState() == kPlaying) {
    Routing.RequestRouting();
  } else {
    Routing.Release();
  }
  return true;
}

void CallSequence::RestoreMusic() {
  if (MusicState() == kStopped) return Lines.SetWave(TheSettings.MusicVolume);
  Music.PlaySong();
  if (TheSettings.FadeTime > 0) Lines.OpenWave();
  TheFades.BringMusicUp();
}

/// Plays a chime in place of any other file, with the microphone closed. Returns when it has ended,
/// or earlier when the release or the amplifier has ended the call.
void CallSequence::PlayChime(int call, const std::string& chime) {
  WavePlayer& player = TheFrmPlayers.WavPlayer;
  player.FileName = MessagePath(TheSettings, chime);
  player.Command("Close");
  player.Command("Open");
  TheFlags.WavFinished = false;
  player.Command("Play");
  Lines.SetWave(TheSettings.MessageVolume);
  Lines.OpenMaster();
  Lines.OpenWave();
  Lines.CloseMicrophone();
  Loop.Pump();
  Loop.PumpUntil([this] {
    return TheFlags.WavFinished || TheFlags.CallEndedDuringChime || TheFlags.PriorityPreempted;
  });
  if (!IsLast(call)) return;
  if (TheFlags.CallEndedDuringChime) {
    DarkenLamps();
  } else if (TheFlags.CallActive) {
    Lines.MuteWave();
  }
}

void CallSequence::DarkenLamps() {
  TheFrmPlayers.tmrFlash.Enabled = false;
  TheFrmMain.PaintBusyLamps(kButtonFace);
}

void CallSequence::SetCaptions(StringId caption) {
  TheFrmMain.cmdCall.Caption = Strings.LoadString(caption);
  TheFrmMain.cmdCall2.Caption = Strings.LoadString(caption);
}

void CallSequence::FlashLamps() {
  TheFrmMain.PaintBusyLamps(TheFrmMain.BusyLampsAreLit() ? kButtonFace : kGreen);
}

}  // namespace marlex
