#pragma once

#include <string>

namespace marlex {

/// Flags that tie the subsystems together, each with who sets and who reads it. Whoever waits tests
/// them again after the wait. All are False at start.
struct Flags {
  bool PriorityClear = false;  // no call of equal or higher priority is reported; set by the start
                               // and the status byte, read by the tick, cmdPlay and the call
  bool PriorityPreempted = false;  // the amplifier took over, until status 0; set by the status
                                   // byte, read by the announcement, the routing timer and the call
  bool CallActive = false;  // a PC call is in progress; set by the call, cleared also by a takeover
  bool MessagePlaying =
      false;  // message files are being played; set by their player, cleared also by the call
  bool MessageAwaitingSongEnd =
      false;  // a message waits for the music break; set by the tick, cleared at song end
  bool FadeRunning = false;  // a fade is in progress; set by the fades, cleared also by a takeover
  bool CallEndedDuringFade =
      false;  // the call key was released in the fade; set and cleared by the call
  bool CallEndedDuringChime =
      false;  // it was released before a WAV had ended; set and cleared by the call
  bool WavFinished =
      false;  // the wave player reported the end of a file; cleared by whoever plays one

  bool MusicStoppedByUser =
      false;  // bars the clock's start; set by cmdStop, cleared by cmdPlay, mnuOpen and 00:00
  bool MusicStoppedBySchedule =
      false;  // the clock stopped the music; cleared by a start of the clock or cmdPlay
  bool MusicStartedBySchedule =
      false;  // the clock started the music; only such music is stopped by the clock
  bool MusicStopOverridden =
      false;  // restarted by hand after a stop of the clock; never cleared, which is meant

  int AmplifierStatus = 0;    // last priority status: 0, 64, 128 or 192; set by the status byte
  std::string CurrentMinute;  // "HH:MM" of the running tick; empty before the first; set by the
                              // tick and an autostart
};

}  // namespace marlex
