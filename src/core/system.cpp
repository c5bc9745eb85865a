#include "core/system.h"

#include "i18n/operator_failure.h"

namespace marlex {

System::System(const Pc& pc)
    : ThePc(pc),
      ThePreviews(TheFlags),
      TheRecord(pc.Log),
      TheNotices(pc.Loop, pc.Boxes, Strings),
      Store(pc.Profiles, pc.TheProcess),
      TheWindows(pc.Loop, pc.Files),
      TheFrmPlayers(pc.Loop, pc.MP3Player, pc.WavPlayer, pc.WavControl, pc.TolvoPort),
      TheFrmMxr(pc.Loop),
      Mixer(pc.Mixer, TheFrmMxr, pc.Boxes, pc.TheProcess, Strings),
      TheMixerWindow(TheFrmMxr, Mixer, pc.Loop, pc.TheProcess),
      Lines(TheFrmMxr, Mixer),
      Routing(TheWindows.frmMain, TheFrmPlayers, Store),
      Link(TheFlags, Store.Values, TheWindows.frmMain, TheFrmPlayers, Lines, Routing, ThePreviews,
           TheRecord, Strings, TheNotices),
      TheFades(TheFlags, Store.Values, pc.Loop, TheFrmPlayers, Lines),
      Music(TheFlags, Store, pc.Files, TheWindows.frmMain, TheFrmPlayers, Lines, Routing,
            ThePreviews, TheRecord, Strings, TheNotices),
      Playlist(TheFlags, Store, pc.Files, pc.Clock, pc.Boxes, TheWindows.frmMain, Music, Strings),
      ThePlaylistEditor(Store, pc.Files, pc.Clock, pc.Boxes, TheWindows, TheFrmPlayers, Lines,
                        TheFades, Music, ThePreviews, Strings, TheNotices),
      MusicClock(TheFlags, Store.Values, pc.Clock, TheWindows.frmMain, TheFrmPlayers, Routing,
                 Music, TheFades, TheRecord),
      Columns(Store.Values, TheWindows.frmMain, Strings),
      TheConflicts(Store.Values, TheWindows.frmMain, Lines, Columns, Strings, TheNotices),
      Table(Store, pc.Clock, TheWindows.frmMain, TheFrmPlayers, Columns, TheConflicts, Strings,
            TheNotices),
      Views(Store, TheWindows.frmMain, Table),
      Sequences(Store, pc.Boxes, TheWindows.frmMain, TheFrmPlayers, TheConflicts, Table),
      Wavs(TheFlags, Store.Values, pc.Loop, TheFrmPlayers, Lines, TheWindows.frmSettings,
           TheRecord),
      Playback(TheFlags, Store.Values, TheWindows.frmMain, TheFrmPlayers, Lines, Routing, TheFades,
               Music, Wavs, ThePreviews),
      Tick(TheFlags, pc.Clock, TheWindows.frmMain, TheFrmPlayers, MusicClock, Table, Wavs, Playback,
           TheRecord),
      Missed(pc.Loop, pc.Clock, TheFlags, TheWindows, Tick, TheRecord),
      Selected(Store.Values, TheFrmPlayers, TheWindows.TheWavWindow),
      Interval(TheWindows.TheWavWindow),
      Times(TheWindows.TheWavWindow, TheNotices),
      Preview(TheFlags, Store.Values, pc.Loop, TheWindows.TheWavWindow, TheFrmPlayers, Lines, Music,
              ThePreviews, Strings),
      Editor(Store, pc.Loop, pc.Boxes, pc.Files, TheWindows, TheFrmPlayers, Table, TheConflicts,
             Selected, Times, Preview, Strings, TheNotices),
      Call(TheFlags, Store.Values, pc.Loop, TheWindows.frmMain, TheFrmPlayers, Lines, Routing,
           TheFades, Music, ThePreviews, TheRecord, Strings),
      Keys(Store, TheWindows, Editor, Selected),
      TheMainWindow(ThePc, Store, TheWindows, TheFrmPlayers, TheFrmMxr, Lines, Strings, Columns,
                    Playlist, Sequences, Routing, TheRecord, TheNotices),
      TheSettingsDialog(TheFlags, Store, pc.TheProcess, TheWindows, TheFrmPlayers, Lines, Strings,
                        TheNotices, Table, TheMainWindow),
      ThePickers(Store, TheWindows, Strings),
      Loader(TheFlags, Store, TheWindows, TheFrmPlayers, Mixer, Lines, Strings, TheNotices),
      TheDay(TheFlags, Store.Values, TheWindows.frmMain, Tick, pc.Clock),
      TheFaults(pc.Loop, pc.Sound, pc.TolvoPort, Store, Tick, ClockWatch(pc.Clock),
                PlanMedia(TheFlags, Store.Values, TheWindows.frmMain, TheFrmPlayers, ThePreviews,
                          TheDay, Tick, pc.Media, pc.Clock),
                TheRecord, Strings),
      ThePasserby(TheFlags, TheWindows, TheFrmPlayers, Tick, TheDay, TheFaults, Strings),
      StartUp_(ThePc, Store, TheWindows, Strings, Loader, TheNotices) {
  // Calls from a lower floor of the house to a higher one.
  Store.OnNotSaved = [this] { StartUp_.ReportNotSaved(); };
  TheSettingsDialog.ForgetAmplifier = [this] { Link.ForgetAmplifier(); };
  Link.ResumeMusic = [this] { Music.PlaySong(); };
  Link.StopFade = [this] { TheFades.Stop(); };
  Music.AnnounceAtBreak = [this] { Wavs.PlayMessageWavs(); };
  ThePreviews.EndSong = [this] { ThePlaylistEditor.EndPreview(); };
  ThePreviews.EndMessages = [this] { Preview.End(); };
  pc.Loop.OnFailure = [this](const RuntimeFailure& failure) {
    TheNotices.Error(TextOf(failure, Strings));
  };
}

}  // namespace marlex
