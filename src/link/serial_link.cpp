#include "link/serial_link.h"

namespace marlex {
SerialLink::SerialLink(Flags& flags, const Settings& settings, FrmMain& frmMain,
                       FrmPlayers& frmPlayers, SoundLines& lines, ZoneRouting& routing,
                       Previews& previews, Record& record, const StringTable& strings,
                       Notices& notices)
    : TheFlags(flags),
      TheSettings(settings),
      TheFrmMain(frmMain),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      Routing(routing),
      ThePreviews(previews),
      TheRecord(record),
      Strings(strings) {
  frmPlayers.tmrIODelay.OnTimer = [this] { SendRoutingByte(); };
  frmPlayers.tmrDwellTimer.OnTimer = [this] { ReturnMusicZones(); };
  frmPlayers.TolvoPort.OnComm = [this] { OnComm(); };
  frmPlayers.TolvoPort.OnFault = [this, &notices](const std::string& fault) {
    notices.Error(Strings.LoadString(kStrPortNotOpened) + "\r\n" + fault);
  };
}

/// While the amplifier holds the outputs, the timer keeps running, so that the byte goes out once
/// the priority call is over.
void SerialLink::SendRoutingByte() {
  if (!TheSettings.RouterPresent || TheFlags.PriorityPreempted) return;
  TheFrmPlayers.tmrIODelay.Enabled = false;
  const char routingByte = RoutingByte(Routing.ShownZones(), TheSettings.OwnPriorityLevel);
  TheFrmPlayers.TolvoPort.Output(std::string(1, routingByte));
}

/// Of the bytes that have arrived, only the first counts.
void SerialLink::OnComm() {
  if (TheFrmPlayers.TolvoPort.InBufferCount() == 0) return;
  const std::string input = TheFrmPlayers.TolvoPort.Input();
  TheFlags.AmplifierStatus = static_cast<unsigned char>(input.front()) & kPriorityBits;
  TheRecord.StatusIs(TheFlags.AmplifierStatus);
  ShowPriority();
  if (TheFlags.AmplifierStatus >= kHighPriority) TakeOver();
  if (TheFlags.AmplifierStatus == 0) EndPriority();
}

void SerialLink::ShowPriority() {
  const bool blocked =
      TheFlags.AmplifierStatus > 0 && TheFlags.AmplifierStatus >= TheSettings.OwnPriorityLevel;
  TheFlags.PriorityClear = !blocked;
  TheFrmMain.lblHiPrio.Caption =
      Strings.LoadString(blocked ? kStrHigherPriorityCall : kStrLowerPriorityCall);
  TheFrmMain.lblHiPrio.Visible = true;
  TheFrmMain.SetTransportHeight(FrmMain::kShrunkenTransportHeight);
}

/// Ignores our own level: a status of 128 takes over even if that is high.
void SerialLink::TakeOver() {
  const bool musicPlays = TheFrmPlayers.MP3Player.PlayState() == kPlaying;
  if (musicPlays || TheFlags.MessagePlaying || TheFlags.CallActive) ProcessPriority();
  ThePreviews.End();
}

void SerialLink::ProcessPriority() {
  Lines.SetWave(TheSettings.MusicVolume);
  Lines.CloseMicrophone();
  TheFrmMain.cmdCall.Caption = Strings.LoadString(kStrCall);
  TheFrmPlayers.lstMsgSequence.Clear();
  // Deliberate: in languages other than English this text is not a command of the player, and the
  // file plays on, unheard since the master is muted.
  TheFrmPlayers.WavPlayer.Command(Strings.LoadString(kStrClose));
  StopFade();
  TheFlags.CallActive = false;
  TheFrmPlayers.tmrFlash.Enabled = false;
  Lines.MuteMaster();
  Routing.ApplyMusicRouting();
  TheFrmMain.cmdCall.Enabled = false;
  TheFrmPlayers.tmrDwellTimer.Enabled = false;
  TheFlags.PriorityPreempted = true;
  TheRecord.Takeover();
}

void SerialLink::ForgetAmplifier() {
  if (TheFlags.AmplifierStatus == 0) return;
  TheFlags.AmplifierStatus = 0;
  TheRecord.StatusIs(0);
  EndPriority();
}

/// Every status 0 runs all of this, even if nothing was interrupted; it enables the call button
/// even without call zones.
void SerialLink::EndPriority() {
  TheFlags.PriorityClear = true;
  TheFrmMain.lblHiPrio.Visible = false;
  TheFrmMain.SetTransportHeight(FrmMain::kTransportHeight);
  TheFrmPlayers.tmrDwellTimer.Enabled = true;
  TheFrmMain.PaintBusyLamps(kButtonFace);
  TheFrmMain.cmdCall.Enabled = true;
  Lines.OpenMaster();
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying) {
    ResumeMusic();
    Lines.OpenWave();
  }
  TheFlags.PriorityPreempted = false;
}

void SerialLink::ReturnMusicZones() {
  TheFrmPlayers.tmrDwellTimer.Enabled = false;
  if (!TheSettings.RouterPresent || TheFrmPlayers.MP3Player.PlayState() != kPlaying) return;
  Routing.RequestRouting();
  Lines.OpenMaster();
}

}  // namespace marlex
