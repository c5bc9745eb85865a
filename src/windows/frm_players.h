#pragma once

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/timer.h"
#include "platform/serial_port.h"
#include "platform/song_player.h"
#include "platform/wave_player.h"

namespace marlex {

/// The engine window, which is never shown. It owns all engine timers, and refers to the players
/// and the serial port.
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

  /// The schedule's gate: while the schedule is held, no row fires and the music is not started or
  /// stopped by the clock. It is held by an announcement while it plays or waits for the music
  /// break, by a call from the press to the end of its release, by the sequence editor when it
  /// opens, and on a first run until the main window is shown. Holds are not counted: the first to
  /// resume it resumes it for all. A takeover that cuts off a call resumes nothing: the schedule
  /// stays held until the next call ends or the editor closes.
  void HoldSchedule() { tmrMessage.Enabled = false; }
  void ResumeSchedule() { tmrMessage.Enabled = true; }
  bool ScheduleIsHeld() const { return !tmrMessage.Enabled; }

  SongPlayer& MP3Player;
  WavePlayer& WavPlayer;
  WavePlayer& WavControl;
  SerialPort& TolvoPort;

  ListBox lstMsgSequence{*this, "lstMsgSequence"};  // WAV file names of the running sequence
  ListBox SeqFileList{*this, "SeqFileList"};        // names of the open sequence files

  Timer tmrMessage;      // ticks the schedule
  Timer tmrMP3Position;  // updates the displayed position of the song
  Timer tmrDwellTimer;   // one-shot after amplifier status 0
  Timer tmrFlash;        // flashes the busy lamps during a call
  Timer tmrIODelay;      // computes and sends the routing byte
  Timer tmrFadeTime;     // one step of a fade
};

}  // namespace marlex
