#include "scenario/random_installation.h"

#include "scenario/random_day.h"

namespace marlex {
namespace {

using Texts = std::vector<std::string>;

const Texts kSongs{"march", "waltz", "polka", "tango", "swing", "blues", "my song, live", "mar"};
const Texts kMessages{"welcome", "closing", "gong", "lost child", "offer", "silence"};
const Texts kChimes{"ding", "dong"};

std::string Line(const std::string& key, const std::string& value) {
  return key + "=" + value + "\r\n";
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string ClockText(int minutes) {
  return TwoDigits(minutes / 60 % 24) + ":" + TwoDigits(minutes % 60);
}

int LengthOf(Dice& dice, int longestMs) {
  const int kind = dice.Between(1, 8);
  if (kind == 1) return 0;
  if (kind == 2) return dice.Between(1, 900);
  return dice.Between(1, longestMs / 100) * 100 + 37;
}

/// Digits at their places or zeros, "1234007"; now and then too short, with foreign characters, or
/// empty.
std::string Mask(Dice& dice, int length) {
  std::string mask;
  for (int place = 1; place <= length; ++place) mask += dice.OneIn(4) ? "0" : std::to_string(place);
  if (dice.OneIn(12)) mask.resize(static_cast<std::size_t>(dice.Between(0, length)));
  if (dice.OneIn(25)) mask = dice.Of(Texts{"", "0000000", "xyz", "1111111", "12345678"});
  return mask;
}

std::string Routing(Dice& dice) {
  std::string routing;
  for (int zone = 0; zone < kZones; ++zone) routing += dice.OneIn(2) ? '1' : '0';
  if (dice.OneIn(8)) routing = dice.Of(Texts{"", "11", "000000", "1x1", "11111111"});
  return routing;
}

int Volume(Dice& dice) {
  if (dice.OneIn(4)) return dice.Of(std::vector<int>{0, 1, 999, 2000, 3000, 63600, 64600, 65535});
  return dice.Between(0, 65535);
}

/// Hours around the start of the day, mostly as an operator would write them.
std::string Hours(Dice& dice, int hour) {
  const std::string now = std::to_string(hour);
  const std::string next = std::to_string((hour + 1) % 24);
  if (dice.OneIn(10)) {
    return dice.Of(Texts{"", "abc", now + "-" + now, "-3", now + "-", "0-23,5", "99",
                         ("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,0,1,2,3,4,5,"
                          "6,7,8")});
  }
  return dice.Of(Texts{"0-23", "0-23", now + "," + next, now + "-" + next, next + "," + now,
                       TwoDigits(hour) + "," + now, "22-" + next});
}

std::string Minutes(Dice& dice) {
  if (dice.OneIn(12)) {
    return dice.Of(Texts{"", "7", "007", "x", "61", "00,,10",
                         ("0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,"
                          "27,28,29,30,31")});
  }
  std::string minutes;
  int minute = dice.Between(0, 9);
  for (; minute < 60; minute += dice.Between(1, 5)) {
    minutes += (minutes.empty() ? "" : ",") + TwoDigits(minute);
    if (minutes.size() > 85) break;
  }
  return minutes;
}

std::string MessagesText(Dice& dice) {
  if (dice.OneIn(12))
    return dice.Of(
        Texts{"", ",", "welcome,,gong", std::string(140, 'w'), "gong," + std::string(120, 'x')});
  std::string messages = dice.Of(kMessages);
  while (dice.OneIn(2) && messages.size() < 90) messages += "," + dice.Of(kMessages);
  return messages;
}

/// None, one of ours, an announcement, or a file that never existed.
std::string Chime(Dice& dice) {
  return dice.Of(Texts{"", "", "ding", "ding", "dong", "dong", "gong", "lost chime"});
}

Sequence DrawSequence(Dice& dice, const std::string& file, int hour) {
  return {.File = file,
          .Messages = MessagesText(dice),
          .Hours = Hours(dice, hour),
          .Minutes = Minutes(dice),
          .Weekdays = Mask(dice, 7),
          .Zones = Mask(dice, 6),
          .Timer = dice.Of(Texts{"Exact", "Exact", "Exact", "Exact", "Between", "exact"})};
}

std::string Text(const Sequence& sequence) {
  return "[Schedule]\r\n" + Line("Message(s)", sequence.Messages) +
         Line("Hour(s)", sequence.Hours) + Line("Minute(s)", sequence.Minutes) +
         Line("Weekday(s)", sequence.Weekdays) + Line("Zone(s)", sequence.Zones) +
         Line("Timer", sequence.Timer);
}

/// A window that begins or ends within the day, or none.
void DrawWindow(Dice& dice, int nowMinutes, std::string& start, std::string& stop) {
  if (dice.OneIn(3)) return;
  const int startMinutes = nowMinutes + dice.Between(-5, 15);
  start = ClockText(startMinutes);
  stop = ClockText(startMinutes + dice.Between(dice.OneIn(5) ? -5 : 3, 25));
  if (dice.OneIn(10)) stop = dice.Of(Texts{"", "24:00", "x"});
}

std::string PlaylistText(Dice& dice, int nowMinutes) {
  std::string text = "[Last played]\r\n" + Line("Last song", dice.Of(Texts{"", "0", "3", "x"}));
  text += "[Playlist]\r\n";
  const int songs = dice.Between(0, 5);
  for (int song = 1; song <= songs; ++song)
    text += Line("Song:" + std::to_string(song), dice.Of(kSongs));
  std::string start, stop;
  DrawWindow(dice, nowMinutes, start, stop);
  text += "[Background music]\r\n" + Line("Start time", start) + Line("Stop time", stop) +
          Line("Weekdays", Mask(dice, 7));
  if (dice.OneIn(4)) text += Line("Autostart", dice.Of(Texts{"True", "False", "yes"}));
  return text;
}

std::vector<int> DrawDate(Dice& dice) {
  const int hour = dice.OneIn(3) ? 23 : dice.Between(0, 23);
  const int minute = hour == 23 ? dice.Between(25, 59) : dice.Between(0, 59);
  return {dice.Between(2024, 2027), dice.Between(1, 12), dice.Between(1, 28), hour, minute,
          dice.Between(0, 59)};
}

void DrawMedia(Dice& dice, DeskOptions& options) {
  const int songs = dice.OneIn(6) ? dice.Between(19, 30) : dice.Between(0, 6);
  for (int song = 0; song < songs; ++song) {
    const std::string name = song < static_cast<int>(kSongs.size())
                                 ? kSongs[static_cast<std::size_t>(song)]
                                 : "song " + std::to_string(song);
    options.Music.push_back({name, LengthOf(dice, 300'000)});
  }
  options.Messages.clear();
  for (const std::string& name : kMessages)
    options.Messages.push_back({name, LengthOf(dice, 15'000)});
  for (const std::string& name : kChimes) options.Messages.push_back({name, LengthOf(dice, 3000)});
}

void DrawSettings(Dice& dice, DeskOptions& options) {
  options.Router = !dice.OneIn(6);
  options.ComPort = dice.OneIn(3) ? "2" : "1";
  options.Priority = dice.Of(Texts{"Low", "High"});
  options.FadeTime = dice.Of(Texts{"Fast", "Slow"});
  options.MusicVolume = Volume(dice);
  options.MessageVolume = Volume(dice);
  options.MasterVolume = Volume(dice);
  options.MicroVolume = Volume(dice);
  options.MusicRouting = Routing(dice);
  options.CallRouting = Routing(dice);
  options.PreChime = Chime(dice);
  options.PostChime = Chime(dice);
  options.AllDays = dice.OneIn(2);
  options.ScheduleName = dice.OneIn(2);
  options.Microphone = !dice.OneIn(5);
  options.Language = dice.OneIn(3) ? "Italian" : "English";
}

}  // namespace

const std::vector<std::string>& PlaylistPaths() {
  static const Texts paths{"/app/Day.lst",     "/app/Evening.lst", "/app/Night.lst",
                           "/app/Foreign.lst", "/app/Gone.lst",    kGoodPlaylist};
  return paths;
}

const std::vector<std::string>& ScheduleNames() {
  static const Texts names{"a.sch", "b.sch", "late offers.sch", "d.sch", "foreign.sch", "gone.sch"};
  return names;
}

DeskOptions DrawInstallation(Dice& dice) {
  DeskOptions options;
  options.Now = DrawDate(dice);
  const int nowMinutes = options.Now[3] * 60 + options.Now[4];
  DrawMedia(dice, options);
  DrawSettings(dice, options);
  DrawWindow(dice, nowMinutes, options.StartTime, options.StopTime);
  options.WeekDays = Mask(dice, 7);
  if (dice.OneIn(3)) options.Autostart = dice.Of(Texts{"True", "1", "True", "False"});
  options.LastSong = dice.Of(Texts{"", "0", "1", "40", "-2", "abc"});
  for (const std::string& file : ScheduleNames()) {
    if (dice.OneIn(2)) options.Sequences.push_back(DrawSequence(dice, file, options.Now[3]));
  }
  return options;
}

std::function<void(SimulatedPc&)> DrawFiles(Dice& dice, const DeskOptions& options) {
  std::vector<std::pair<std::string, std::string>> files;
  const int nowMinutes = options.Now[3] * 60 + options.Now[4];
  for (const char* path : {"/app/Evening.lst", "/app/Night.lst"})
    files.emplace_back(path, PlaylistText(dice, nowMinutes));
  files.emplace_back("/app/Foreign.lst", "\xff\xfe not a list\n[Playlist\nSong:1");
  for (const char* name : {"b.sch", "late offers.sch"}) {
    if (dice.OneIn(2)) continue;
    files.emplace_back(std::string("/app/") + name, Text(DrawSequence(dice, name, options.Now[3])));
  }
  files.emplace_back("/app/foreign.sch", "PK\x03\x04 nothing of ours");
  Texts broken, gone;
  for (const std::string& name : kSongs) {
    if (dice.OneIn(6)) (dice.OneIn(2) ? broken : gone).push_back("/music/" + name + ".mp3");
  }
  for (const std::string& name : kMessages) {
    if (dice.OneIn(6)) (dice.OneIn(2) ? broken : gone).push_back("/messages/" + name + ".wav");
  }
  for (const std::string& name : kChimes) {
    if (dice.OneIn(8)) (dice.OneIn(2) ? broken : gone).push_back("/messages/" + name + ".wav");
  }
  return [files, broken, gone](SimulatedPc& pc) {
    for (const auto& [path, text] : files) pc.Disk.AddFile(path, text);
    for (const std::string& path : broken) pc.Disk.AddBroken(path);
    for (const std::string& path : gone) pc.Disk.Remove(path);
    pc.Disk.Remove("/app/gone.sch");
    AddGoodFiles(pc.Disk);
  };
}

void AddGoodFiles(MemoryDisk& disk) {
  disk.AddFile(kGoodPlaylist, "[Playlist]\r\nSong:1=anthem\r\n");
  disk.AddFile(kGoodSchedule, Text({.Messages = "good news,welcome",
                                    .Hours = "0-23",
                                    .Minutes = "00,10,20,30,40,50",
                                    .Zones = "020006"}));
  disk.AddMp3("/music/anthem.mp3", 95'000);
  disk.AddWav("/messages/good news.wav", 2500);
}

}  // namespace marlex
