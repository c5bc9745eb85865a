#pragma once

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/timer.h"
#include "platform/serial_port.h"
#include "platform/song_player.h"
#include "platform/wave_player.h"

namespace marlex {

/// The engine window, never shown. Every player, the serial port and every engine timer belong to
/// it.
struct FrmPlayers : Form {
  FrmPlayers(EventLoop& loop, SongPlayer& songPlayer, WavePlayer& wavPlayer, WavePlayer& wavControl,
             SerialPort& serialPort)
      : Form("frmPlayers", ""),
        MP3Player(songPlayer),
        WavPlayer(wavPlayer),
        WavControl(wavControl),
        TolvoPort(serialPort),
        tmrMessage(*this, "tmrMessage", loop, 1000, true),
        tmrMP3Position(*this, "tmrMP3Position", loop, 100, true),
        tmrDwellTimer(*this, "tmrDwellTimer", loop, 200, false),
        tmrFlash(*this, "tmrFlash", loop, 125, false),
        tmrIODelay(*this, "tmrIODelay", loop, 200, false),
        tmrFadeTime(*this, "tmrFadeTime", loop, 10, false) {}

  /// The schedule's gate: while it is held, no row fires and no music starts or stops by the clock.
  /// An announcement holds it for as long as it plays or waits for the music break, a call from the
  /// press to the end of its release, the sequence editor while it is open, and the start until the
  /// settings are read. It does not count: whoever ends resumes it for all.
  void HoldSchedule() { tmrMessage.Enabled = false; }
  void ResumeSchedule() { tmrMessage.Enabled = true; }
  bool ScheduleIsHeld() const { return !tmrMessage.Enabled; }

  SongPlayer& MP3Player;
  WavePlayer& WavPlayer;
  WavePlayer& WavControl;
  SerialPort& TolvoPort;

  ListBox lstMsgSequence{*this, "lstMsgSequence"};  // WAV file names of the running sequence
  ListBox SeqFileList{*this, "SeqFileList"};        // names of the open sequence files

  Timer tmrMessage;      // the schedule's tick
  Timer tmrMP3Position;  // position display of the song
  Timer tmrDwellTimer;   // one-shot after amplifier status 0
  Timer tmrFlash;        // flashes the busy lamps during a call
  Timer tmrIODelay;      // computes and sends the routing byte
  Timer tmrFadeTime;     // one step of a fade
};

}  // namespace marlex
