#include "scenario/playlist_hands.h"

#include <algorithm>
#include <array>
#include <vector>

#include "scenario/random_installation.h"

namespace marlex {
namespace {

using Texts = std::vector<std::string>;
using Step = std::function<void(FrmPlaylist&)>;

FrmPlaylist& TheFrmPlaylist(WatchedDesk& desk) { return desk.Sys->TheWindows.frmPlaylist; }

Deed AtHand(const std::string& what, const Step& step) {
  return {what, [step](WatchedDesk& desk) { desk.StepAtPlaylist(step); }};
}

/// Opens the editor if it is closed.
Deed OpenedAtHand(const std::string& what, const Step& step) {
  return {what, [step](WatchedDesk& desk) {
            if (!TheFrmPlaylist(desk).Visible && desk.Shows("mnuPlaylist"))
              desk.Click("mnuPlaylist");
            desk.StepAtPlaylist(step);
          }};
}

Texts Songs(const FrmPlaylist& editor) {
  Texts songs;
  for (int song = 0; song < editor.SelectedMP3s.ListCount(); ++song)
    songs.push_back(editor.SelectedMP3s.List(song));
  return songs;
}

void Shuffle(FrmPlaylist& editor) {
  Texts before = Songs(editor);
  Desk::Operate(editor.cmdRandomize);
  Texts after = Songs(editor);
  std::sort(before.begin(), before.end());
  std::sort(after.begin(), after.end());
  Require(before == after, "A shuffle has left other songs");
}

/// Works even without a selection, since a preview or a shuffle leaves the button enabled.
void RemoveSelected(FrmPlaylist& editor) {
  Texts expected = Songs(editor);
  const int entry = editor.SelectedMP3s.ListIndex();
  const bool takes = editor.RemoveKey.Enabled && entry != ListBox::kNoSelection;
  if (takes) expected.erase(expected.begin() + entry);
  Desk::Operate(editor.RemoveKey);
  Require(Songs(editor) == expected, "Other songs are gone than the one that was removed");
}

/// If no song is chosen yet, chooses all there are; if none is selected, selects one.
Deed DrawPreview(Dice& dice) {
  const int place = dice.Between(0, 1000);
  return OpenedAtHand("hear song " + std::to_string(place), [place](FrmPlaylist& editor) {
    if (editor.SelectedMP3s.ListCount() == 0) Desk::Operate(editor.cmdSelectAll);
    if (!editor.PrevKey.Enabled) ClickEntry(editor.SelectedMP3s, place);
    Desk::Operate(editor.PrevKey);
  });
}

/// What an operator does who has chosen the wrong menu item.
Deed DrawGlance(Dice& dice) {
  const int lengthMs = dice.Between(0, dice.OneIn(2) ? 2000 : 20'000);
  return {"open the playlist editor for " + std::to_string(lengthMs) + " ms",
          [lengthMs](WatchedDesk& desk) {
            if (!desk.Shows("mnuPlaylist")) return;
            desk.Click("mnuPlaylist");
            desk.Pc.Loop.Schedule(lengthMs, [&desk] { TheFrmPlaylist(desk).Close(); });
          }};
}

Deed DrawSong(Dice& dice) {
  const int place = dice.Between(0, 1000);
  switch (dice.Between(1, 8)) {
    case 1:
      return OpenedAtHand("choose all songs",
                          [](FrmPlaylist& editor) { Desk::Operate(editor.cmdSelectAll); });
    case 2:
      return AtHand("remove all songs",
                    [](FrmPlaylist& editor) { Desk::Operate(editor.RemAll_Key); });
    case 3:
      return AtHand("shuffle the songs", Shuffle);
    case 4:
      return AtHand("remove the selected song", RemoveSelected);
    case 5:
      return AtHand("select song " + std::to_string(place) + " and remove it",
                    [place](FrmPlaylist& editor) {
                      ClickEntry(editor.SelectedMP3s, place);
                      RemoveSelected(editor);
                    });
    case 6:
      return AtHand("select song " + std::to_string(place),
                    [place](FrmPlaylist& editor) { ClickEntry(editor.SelectedMP3s, place); });
    default:
      return OpenedAtHand("choose song " + std::to_string(place),
                          [place](FrmPlaylist& editor) { ClickEntry(editor.AvailMP3s, place); });
  }
}

/// The four time lists, in their order.
using Times = std::array<int, 4>;

void SetTimes(FrmPlaylist& editor, const Times& times) {
  if (!editor.frMusicTime.Visible) return;
  editor.cmbStartHours.SetListIndex(times[0]);
  editor.cmbStartMinutes.SetListIndex(times[1]);
  editor.cmbStopHours.SetListIndex(times[2]);
  editor.cmbStopMinutes.SetListIndex(times[3]);
}

/// Mostly a window that contains the day, or ends in it; now and then one of the lists is left
/// unset.
Times DrawTimes(Dice& dice) {
  Times times{};
  times[0] = dice.OneIn(2) ? 0 : dice.Between(0, 23);
  times[1] = dice.Between(0, 59);
  times[2] = dice.OneIn(2) ? 23 : dice.Between(0, 23);
  times[3] = dice.Between(0, 59);
  if (dice.OneIn(6)) times[static_cast<std::size_t>(dice.Between(0, 3))] = ListBox::kNoSelection;
  return times;
}

std::string Describe(const Times& times) {
  std::string text;
  for (const int time : times) text += " " + std::to_string(time);
  return text;
}

Deed DrawStart(Dice& dice) {
  const int choice = dice.OneIn(2) ? FrmPlaylist::kScheduled : dice.Between(1, 2);
  const int day = dice.Between(0, kWeekdays - 1);
  const Times times = DrawTimes(dice);
  switch (dice.Between(1, 4)) {
    case 1:
      return AtHand("take start " + std::to_string(choice),
                    [choice](FrmPlaylist& editor) { Desk::Operate(editor.optScheduled[choice]); });
    case 2:
      return AtHand("tick day " + std::to_string(day), [day](FrmPlaylist& editor) {
        if (editor.frMusicTime.Visible) Desk::Operate(editor.chkDays[day]);
      });
    default:
      return AtHand("set the times" + Describe(times),
                    [times](FrmPlaylist& editor) { SetTimes(editor, times); });
  }
}

/// A file dialog that is already open gets this answer instead of its own.
Deed DrawOpen(Dice& dice) {
  static const Texts others{"", "/app/missing.lst", "/app/a.sch", "/nowhere/Day.lst",
                            "/app/new.lst"};
  const std::string file = dice.OneIn(3) ? dice.Of(others) : dice.Of(PlaylistPaths());
  return {"open \"" + file + "\" in the playlist editor", [file](WatchedDesk& desk) {
            if (!TheFrmPlaylist(desk).Visible && desk.Shows("mnuPlaylist"))
              desk.Click("mnuPlaylist");
            desk.Pc.Dialogs.OpenResults = {file};
            desk.StepAtPlaylist([](FrmPlaylist& editor) { Desk::Operate(editor.mnuOpen); });
          }};
}

void Compose(FrmPlaylist& editor, int place, int choice, const Times& times) {
  ClickEntry(editor.AvailMP3s, place);
  ClickEntry(editor.AvailMP3s, place / 2);
  Desk::Operate(editor.optScheduled[choice]);
  SetTimes(editor, times);
  if (choice != FrmPlaylist::kScheduled) return;
  for (int day = place % kWeekdays; day < kWeekdays; ++day) Desk::Operate(editor.chkDays[day]);
}

/// Half of the saves are of a complete list, and some are made on a full disk.
Deed DrawSave(Dice& dice) {
  static const Texts files{"/app/Day.lst",
                           "/app/Day.lst",
                           "/app/Evening.lst",
                           "/app/Night.lst",
                           "/app/new.lst",
                           "/app/new.lst",
                           "",
                           "/messages",
                           "/nowhere/new.lst"};
  const std::string file = dice.Of(files);
  const bool composes = dice.OneIn(2);
  const bool full = dice.OneIn(8);
  const int place = dice.Between(0, 1000);
  const int choice = dice.Between(FrmPlaylist::kScheduled, FrmPlaylist::kAutostart);
  const Times times = DrawTimes(dice);
  std::string what = "save the list as \"" + file + "\"" + (full ? " on a full disk" : "");
  if (composes) {
    what += " with song " + std::to_string(place) + ", start " + std::to_string(choice) + ", at" +
            Describe(times);
  }
  return {
      what, [=](WatchedDesk& desk) {
        if (composes && !TheFrmPlaylist(desk).Visible && desk.Shows("mnuPlaylist"))
          desk.Click("mnuPlaylist");
        if (composes) {
          desk.StepAtPlaylist([=](FrmPlaylist& editor) { Compose(editor, place, choice, times); });
        }
        desk.Pc.Dialogs.OpenResults = {file};
        if (full) desk.Pc.Disk.FailWrites("/app");
        desk.StepAtPlaylist([](FrmPlaylist& editor) { Desk::Operate(editor.mnuSave); });
        if (full) desk.Pc.Disk.Heal("/app");
      }};
}

/// The main window gets the saved list only through its own menu.
Deed DrawHearing(Dice& /*dice*/) {
  return {"open the saved list", [](WatchedDesk& desk) {
            if (!desk.Main().Visible) return;
            desk.Pc.Dialogs.OpenResults = {"/app/new.lst"};
            desk.Click(desk.Main().mnuOpen);
          }};
}

/// Works even over a box, as if another window had brought the editor to the front.
Deed DrawClose(Dice& dice) {
  const bool byMenu = dice.OneIn(2);
  return {byMenu ? "leave the playlist editor" : "close the playlist editor's window",
          [byMenu](WatchedDesk& desk) {
            FrmPlaylist& editor = TheFrmPlaylist(desk);
            if (!editor.Visible) return;
            if (byMenu) return desk.Click(editor.mnuExit);
            desk.Do([&editor] { editor.Close(); });
          }};
}

}  // namespace

Deed DrawPlaylistHand(Dice& dice) {
  using Draw = Deed (*)(Dice&);
  static const std::vector<Draw> draws{[](Dice&) { return ClickOn("mnuPlaylist"); },
                                       [](Dice&) { return ClickOn("mnuPlaylist"); },
                                       DrawPreview,
                                       DrawPreview,
                                       DrawPreview,
                                       DrawGlance,
                                       DrawSong,
                                       DrawSong,
                                       DrawSong,
                                       DrawSong,
                                       DrawStart,
                                       DrawStart,
                                       DrawOpen,
                                       DrawOpen,
                                       DrawSave,
                                       DrawSave,
                                       DrawSave,
                                       DrawHearing,
                                       DrawClose};
  return dice.Of(draws)(dice);
}

}  // namespace marlex
