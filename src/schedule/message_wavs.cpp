#include "schedule/message_wavs.h"

#include "state/media_names.h"
#include "text/split.h"

namespace marlex {

MessageWavs::MessageWavs(Flags& flags, const Settings& settings, EventLoop& loop,
                         FrmPlayers& frmPlayers, SoundLines& lines, FrmSettings& frmSettings,
                         Record& record)
    : TheFlags(flags),
      TheSettings(settings),
      Loop(loop),
      TheFrmPlayers(frmPlayers),
      Lines(lines),
      TheFrmSettings(frmSettings),
      TheRecord(record) {
  WavePlayer& player = frmPlayers.WavPlayer;
  player.OnDone = [this] { TheFlags.WavFinished = true; };
  player.OnStatusUpdate = [this, &player] {
    if (player.Mode() == kWaveStopped) TheFlags.WavFinished = true;
  };
}

void MessageWavs::BuildMessageList(const std::string& messageInfo) {
  TheFrmPlayers.lstMsgSequence.Clear();
  for (const std::string& name : SplitCuttingLast(messageInfo, ',')) {
    TheFrmPlayers.lstMsgSequence.AddItem(name + kMessageExtension);
  }
}

void MessageWavs::PlayMessageWavs() {
  TheFlags.MessagePlaying = true;
  TheFrmSettings.slMusicVolume.Enabled = false;  // the line carries no music now
  OpenMessageLine();
  TheRecord.RowPlays();
  // A call or a takeover empties the list. The loop still runs to the original count, with empty
  // names, each of which ends at once.
  const int count = TheFrmPlayers.lstMsgSequence.ListCount();
  for (int entry = 0; entry < count; ++entry) {
    const ListBox& list = TheFrmPlayers.lstMsgSequence;
    PlayWav(entry < list.ListCount() ? list.List(entry) : "");
  }
  TheRecord.RowEnds();
  Lines.SetWave(TheSettings.MusicVolume);
  TheFlags.MessagePlaying = false;
  TheFrmSettings.slMusicVolume.Enabled = true;
}

/// Messages always play unmuted, with the microphone closed.
void MessageWavs::OpenMessageLine() {
  Lines.SetWave(TheSettings.MessageVolume);
  Lines.OpenWave();
  Lines.CloseMicrophone();
  Lines.OpenMaster();
}

void MessageWavs::PlayWav(const std::string& fileName) {
  TheFrmPlayers.WavPlayer.OpenMessage(TheSettings.MessageDirectory + fileName);
  if (TheFrmPlayers.WavPlayer.Mode() == kWaveNotOpen) TheRecord.MessageIsRefused(fileName);
  TheFlags.WavFinished = false;
  TheFrmPlayers.WavPlayer.Command("Play");
  Loop.PumpUntil([this] { return TheFlags.WavFinished || TheFlags.CallActive; });
}

}  // namespace marlex
