#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "desk/desk.h"
#include "i18n/string_table.h"

namespace marlex {

/// Something that must always hold did not.
struct BrokenRule : std::logic_error {
  using std::logic_error::logic_error;
};

/// A desk that tests after every event, nested ones included, what must always hold, and throws a
/// BrokenRule out of the call that let time pass.
class WatchedDesk : public Desk {
 public:
  WatchedDesk(const DeskOptions& options, const std::function<void(SimulatedPc&)>& prepare);

  /// Virtual milliseconds of the day, which begins with the start of the program.
  std::int64_t NowMs() const { return Pc.Loop.NowMs(); }
  void AdvanceToMs(std::int64_t dayMs);

  bool AtRest() { return Pc.Loop.Waits() == 1 && Main().Visible; }
  static void Require(bool holds, std::string_view rule);

  /// How often the day came to each of the corners that it is told for, by event.
  std::map<std::string, int> Corners;

  /// One of the two call keys goes down or up; an event, to be delivered as one. A key that is
  /// disabled cannot be pressed.
  void StrikeCallKey(int key, bool down);
  bool CallWasPressed = false;     // since the start of the program
  bool KeyHeld = false;            // a call key, since a press that began a call
  bool KeySays(StringId caption);  // both call keys do

  /// The operator does something at the playlist editor, as one event, where it is open and no box
  /// stands before it.
  void StepAtPlaylist(const std::function<void(FrmPlaylist&)>& step);

  void PlugIn();  // the amplifier, into the port that the program uses

  // A drag in the list of songs. It begins on an entry, and the selection follows the pointer.
  void PressSong(int entry);
  void DragTo(int entry);
  void LetGo();

 private:
  void Arm();
  void Check();
  void CheckBytes();
  void CheckMasterMute();
  void CheckMessages();
  void CheckPriority();
  void CheckMixer();
  void CheckMicrophone();
  void CheckLamps();
  void CheckHeldCall();
  void CheckTable();
  void CheckFiringRow();
  void CheckMinute();
  void CheckDueRow();
  void CheckMusicClock();
  void CheckMessageGoesOn();
  void CheckWaits();
  void CheckRest();
  void CheckZonesAtRest();
  void CheckKeysAtRest();
  bool EditorIsOpen();
  bool IsOperatorsFault(const std::string& failure);
  void CheckEditor();
  void CheckView();
  void CheckPreview();
  void CheckSave();
  std::vector<std::string> ReadFields();
  void ArmPlaylist();
  bool PlaylistIsOpen();
  void CheckPlaylist();
  void CheckMainList();
  void CheckListOpen();
  void CheckListSave();
  void CheckSavedList();
  std::vector<std::string> SongsIn(const std::string& file);
  void CheckSongPreview(std::size_t firstLine);
  void CheckSongInPlayer();
  bool OutrunsPreviews();
  bool JournalHas(const std::string& word, std::size_t firstLine);
  void RememberCall();
  void NoteCorners();
  bool LevelsAgree(int line, std::uint32_t componentType);
  bool MusicZonesAreLit();
  void Remember();

  /// What the tick reads of a row of the table.
  struct TableRow {
    std::string Minute;
    std::string Days;
    bool Removed = false;
  };
  std::vector<TableRow> ReadTable();
  int RowDueIn(const std::vector<TableRow>& table, int weekday);
  bool IsDue(int row);

  /// What is in force of the playlists.
  struct Window {
    bool Scheduled = false;
    std::string StartTime, StopTime, WeekDays;
    bool Autostart = false;
    std::string File;

    bool operator==(const Window&) const = default;
  };
  Window ReadWindow();
  Window WindowOf(const std::string& file);
  bool OpensTheMusic(const Window& window);

  /// What the playlist editor shows.
  struct Draft {
    std::vector<std::string> Songs;
    std::array<int, 4> Times{};  // hour and minute of the start, then of the stop
    std::string Days;
    bool TimesShown = false;
    bool Autostart = false;

    bool operator==(const Draft&) const = default;
    bool HasTimes() const;
    bool LacksTimes() const;
  };
  Draft ReadDraft();
  Window StartOf(const Draft& draft);

  /// What the operator has just chosen in a file dialog.
  struct Choice {
    FileDialog Dialog;
    std::string Path;
    bool ByEditor = false;  // that of playlists
  };

  // How it stood after the last event.
  struct {
    std::size_t Bytes = 0;
    std::size_t Lines = 0;
    bool Preempted = false;
    bool CallActive = false;
    bool MasterMuted = true;
    bool Awaiting = false;
    bool Fading = false;
    bool Playing = false;
    bool TickOn = false;
    bool PriorityClear = true;
    int OwnLevel = 64;
    bool Router = false;
    bool MainShown = false;
    bool SettingsShown = false;
    bool EditorOpen = false;
    bool PreviewSounds = false;
    std::vector<std::string> Fields;  // of the editor
    bool Writing = false;             // the editor has just saved
    bool AllDaysTicked = false;
    bool StoppedByUser = false;
    bool Overridden = false;
    bool StartedBySchedule = false;
    bool StoppedBySchedule = false;
    int WaitCount = 0;
    int Weekday = 0;
    std::string LastMinute;
    std::vector<TableRow> Table;
    bool MainLoaded = false;
    Window Playlist;
    bool PlaylistOpen = false;  // the editor
    Draft Composed;             // in it
  } Before;
  std::int64_t SteadySinceMs = 0;  // the tick is on, and neither clock nor machine jumped
  std::int64_t CheckedAtMs = 0;
  std::int64_t ClockAheadS = 0;         // of the virtual time, whose zero does not matter
  std::optional<int> TickBegunInWaits;  // a minute whose row is yet to be sought
  std::optional<std::int64_t> WavReportedAtMs;
  std::optional<std::int64_t> CallLeftAtMs;  // by the finger, and it stands
  bool TickOffByCall = false;                // and off ever since
  bool CallCutShort = false;          // by a takeover or a kept release, before it put things right
  bool CallStands = false;            // it is active, or waits of it are on the stack still
  bool KeysLeftDead = false;          // of an announcement that such a call had cut off
  bool CallOverWaitingRow = false;    // whose wait for the song's end it leaves with the tick on
  bool CallOverMessage = false;       // which it has cut off
  bool EditorOverWaitingRow = false;  // which its closing leaves with the tick on
  bool ViewOwed = false;              // all days, as the view menus say or the editor found it
  bool PreviewSounds = false;         // the WAV is the editor's
  bool PreviewInPlayer = false;       // the song is the playlist editor's
  std::optional<Choice> Chosen;       // in the event that is looked at
  bool PlaylistStep = false;          // the event is one of the operator at the playlist editor
  bool PlaylistTouched = false;       // something in its window has changed
  bool SongListTouched = false;       // the list of the main window has
  bool DialogOutlivesPlaylist = false;  // which has been closed since it opened that dialog
  std::size_t DialogOfPlaylist = 0;     // number of the last file dialog that it has opened
  bool WavOfCall = false;               // a WAV of the call's time sounds
  bool FadeOfCall = false;              // a fade runs whose wait a release has ended
  bool MasterHasSounded = false;        // since the start of the program
  bool ZonesLeftBehind = false;  // by an announcement that began under a takeover, or by a call
  bool TableChanged = false;
  bool SongPressed = false;
  bool LevelChanged = false;  // by the settings, since the last status that PriorityClear follows
};

}  // namespace marlex
