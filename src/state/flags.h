#pragma once

#include <string>

namespace marlex {

/// The notice-board: what the subsystems have to know of each other. Whoever waits tests these
/// again after the wait, since anything may have happened in it.
struct Flags {
  // The amplifier.

  /// The last status: 0, 64, 128 or 192, a call's priority at the amplifier's own inputs, 0 for
  /// none. Set by the status byte, and to 0 where the amplifier is given up.
  int AmplifierStatus = 0;
  /// No call of our own level or a higher one is reported. Set by the start and the status byte;
  /// read by whatever would begin: the tick, cmdPlay, a call.
  bool PriorityClear = false;
  /// The amplifier took over from something of ours, until status 0. Set and cleared by the status
  /// byte; read by calls, announcements, previews, the routing timer and the band.
  bool PriorityPreempted = false;

  // The call.

  /// A call is on, from the press to the end of what its release restores. Set and cleared by the
  /// call, cleared also by a takeover; read by all that gives way to a call.
  bool CallActive = false;
  /// The release came in the fade of the press, and has turned it round. Set by the release,
  /// cleared by the press; ends the wait of a fade down.
  bool CallEndedDuringFade = false;
  /// The release came before a WAV had ended. Set by the release and, unless it came in a
  /// pre-chime, kept until a press with one, which it ends. Ends the wait for a chime, and bars the
  /// post-chime.
  bool CallEndedDuringChime = false;

  // The message.

  /// The files of an announcement are being played. Set and cleared by their player, cleared also
  /// by a call over music; read by all that gives way to messages.
  bool MessagePlaying = false;
  /// A row waits for the music break. Set and cleared by the tick, cleared also at the song's end.
  bool MessageAwaitingSongEnd = false;
  /// The wave player has reported the end of its file. Set by that report and by the stop of a
  /// preview, cleared by whoever plays a file.
  bool WavFinished = false;

  // The fade.

  /// A fade is on. Set and cleared by the fades, cleared also by a takeover and with a preview that
  /// is being faded; read by their waits, by the release of a call and by previews.
  bool FadeRunning = false;

  // The music's clock.

  /// The minute of the running tick, "HH:MM"; empty before the first. Set by the tick and by the
  /// opening of a playlist.
  std::string CurrentMinute;
  /// Bars the clock's start. Set by cmdStop; cleared by cmdPlay, the opening of a playlist and
  /// midnight.
  bool MusicStoppedByUser = false;
  /// The clock stopped the music, so that cmdPlay is an override. Set by the clock; cleared by
  /// cmdPlay and the clock's next start.
  bool MusicStoppedBySchedule = false;
  /// The clock started the music; it stops no other. Set and cleared by the clock.
  bool MusicStartedBySchedule = false;
  /// The operator went on after a stop by the clock, which stops nothing from then on. Set by
  /// cmdPlay. Deliberate: never cleared.
  bool MusicStopOverridden = false;
};

}  // namespace marlex
