#pragma once

#include <string>

namespace marlex {

/// The notice board: what the subsystems need to know of each other. Every procedure that waits
/// must test these again after the wait, since anything may have happened during it.
struct Flags {
  // The amplifier.

  /// The last status byte, 0, 64, 128 or 192: the priority of a call at the amplifier's own inputs,
  /// 0 for none. Set by the status byte; reset to 0 when the settings change to an amplifier
  /// without a router. Read by announcements and calls, which then release the zones first.
  int AmplifierStatus = 0;
  /// The amplifier reports no call of our priority level or above. Set at the start, by the status
  /// byte, and when the settings change to an amplifier without a router; read by the band and by
  /// whatever begins: the tick, `cmdPlay`, calls and previews.
  bool PriorityClear = false;
  /// The amplifier has interrupted something of ours, until status 0. Set and cleared by the status
  /// byte, cleared as well when the settings change to an amplifier without a router; read by
  /// calls, announcements, previews, the routing timer, the band and the ribbon.
  bool PriorityPreempted = false;

  // The call.

  /// A call is in progress, from the press until its release has restored everything. Set and
  /// cleared by the call, also cleared by a takeover; read by everything that gives way to a call.
  bool CallActive = false;
  /// The button was released during the fade before the pre-chime; the release reversed the fade.
  /// Set by the release, cleared by the press; ends the wait of a fade down.
  bool CallEndedDuringFade = false;
  /// The button was released while `WavFinished` was false, in a pre-chime or in a call without
  /// one. Set by the release. After a pre-chime, it is cleared by the call or the next press;
  /// otherwise it is kept until the next press with a pre-chime, which it ends. Ends the wait for a
  /// chime, and prevents the post-chime.
  bool CallEndedDuringChime = false;

  // The message.

  /// The files of an announcement are being played. Set and cleared by their player, also cleared
  /// by a call over music; read by everything that gives way to messages.
  bool MessagePlaying = false;
  /// A row waits for the music break. Set and cleared by the tick, also cleared at the end of the
  /// song. Read by the end of the song, by the band, and by the check of files.
  bool MessageAwaitingSongEnd = false;
  /// The wave player has reported the end of its file. Set by that report and when a preview is
  /// stopped; cleared by each procedure that starts a file. Read by the waits for a file, and by
  /// the release of a call.
  bool WavFinished = false;

  // The fade.

  /// A fade is in progress. Set and cleared by the fades; a takeover stops one, and so does the end
  /// of the preview that it fades. Read by the waits of the fades, by the release of a call, by the
  /// end of a song, by previews and by the band.
  bool FadeRunning = false;

  // The music's clock.

  /// The minute of the current tick, "HH:MM". Set by the tick, and by a playlist with autostart
  /// when it is loaded; empty before either. Read by the tick, by the music's clock and when
  /// a playlist is loaded.
  std::string CurrentMinute;
  /// Keeps the clock from starting the music. Set by `cmdStop`; cleared by `cmdPlay`, by opening a
  /// playlist and at midnight. Read by that clock and by the check of files.
  bool MusicStoppedByUser = false;
  /// The clock stopped the music, so that `cmdPlay` overrides it. Set by the clock; cleared by
  /// `cmdPlay` and by the clock's next start.
  bool MusicStoppedBySchedule = false;
  /// The clock started the music; it stops only such music. Set and cleared by the clock.
  bool MusicStartedBySchedule = false;
  /// The operator resumed the music after the clock had stopped it, so the clock stops nothing any
  /// more. Set by `cmdPlay`. Deliberate: never cleared.
  bool MusicStopOverridden = false;
};

}  // namespace marlex
