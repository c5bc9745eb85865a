#include "scenario/inspectors/playlist_draft.h"

#include <algorithm>

namespace marlex {
namespace {

std::string ClockText(int hours, int minutes) {
  const auto twoDigits = [](int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  return twoDigits(hours) + ":" + twoDigits(minutes);
}

}  // namespace

bool PlaylistDraft::HasTimes() const {
  return TimesShown && std::any_of(Times.begin(), Times.end(),
                                   [](int time) { return time != ListBox::kNoSelection; });
}

bool PlaylistDraft::LacksTimes() const {
  return std::find(Times.begin(), Times.end(), ListBox::kNoSelection) != Times.end();
}

MusicTimes PlaylistDraft::TimesWhenSaved(MusicTimes otherwise) const {
  MusicTimes saved = std::move(otherwise);
  saved.StartTime = saved.StopTime = saved.WeekDays = "";
  saved.Autostart = false;
  if (!HasTimes()) {
    saved.WeekDays = std::string(kWeekdays, '0');
    saved.Autostart = Autostart;
  } else if (!LacksTimes()) {
    saved.StartTime = ClockText(Times[0], Times[1]);
    saved.StopTime = ClockText(Times[2], Times[3]);
    saved.WeekDays = Days;
  }
  return saved;
}

PlaylistDraft ReadPlaylistDraft(Desk& desk) {
  FrmPlaylist& editor = desk.Sys->TheWindows.frmPlaylist;
  if (!editor.Loaded()) return {};
  PlaylistDraft draft;
  for (int song = 0; song < editor.SelectedMP3s.ListCount(); ++song)
    draft.Songs.push_back(editor.SelectedMP3s.List(song));
  draft.Times = {editor.cmbStartHours.ListIndex(), editor.cmbStartMinutes.ListIndex(),
                 editor.cmbStopHours.ListIndex(), editor.cmbStopMinutes.ListIndex()};
  for (const auto& day : editor.chkDays)
    draft.Days += static_cast<char>(day->Value != 0 ? '1' + day->Index : '0');
  draft.TimesShown = editor.frMusicTime.Visible;
  draft.Autostart = editor.optScheduled[FrmPlaylist::kAutostart].Value();
  return draft;
}

}  // namespace marlex
