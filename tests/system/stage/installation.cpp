#include "installation.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace marlex::stage {
namespace {

namespace fs = std::filesystem;

constexpr double kLastPosition = 65535;

void WriteSettings(const std::string& folder, const InstallationFiles& files) {
  std::string list;
  for (const SequenceFile& sequence : files.Sequences) {
    list += (list.empty() ? "" : "|") + sequence.Name + ".sch";
  }
  std::string zones;
  for (std::size_t zone = 0; zone < files.ZoneNames.size(); ++zone) {
    zones += "Zone:" + std::to_string(zone + 1) + "=" + files.ZoneNames[zone] + "\n";
  }
  std::ofstream(folder + "/Tolvo.ini")
      << "[User language]\nLanguage=English\n"
      << "[Selected paths]\nMusic directory=" << folder << "/Music/\nMessage directory=" << folder
      << "/Messages/\n"
      << "[Volume]\nMusic volume=" << files.MusicVolume
      << "\nMessage volume=" << files.MessageVolume << "\nMaster volume=" << files.MasterVolume
      << "\nMicro volume=" << files.MicroVolume << "\nFade time=" << files.FadeTime
      << "\n[Chime selection]\nPreChime=" << files.PreChime << "\nPostChime=" << files.PostChime
      << "\n[Selected type]\nQRT4410/20=" << (files.HasRouter ? "Yes" : "No") << "\n"
      << "[Used com port]\nCom port=1\n"
      << "[Priority level]\nPriority=" << files.Priority << "\n"
      << "[Routing]\nMusic routing=" << files.MusicRouting << "\nCall routing=" << files.CallRouting
      << "\n"
      << "[Playlist]\nCurrent List=" << folder << "/Day.lst\n"
      << "[Current sequence list]\nSequence list=" << list << "\nSequence path=" << folder << "/\n"
      << "[Zone names]\n"
      << zones;
}

void WritePlaylist(const std::string& folder, const InstallationFiles& files) {
  std::ofstream stream(folder + "/Day.lst");
  stream << "[Last played]\nLast song=" << files.LastSong << "\n[Playlist]\n";
  int number = 0;
  for (const NamedSound& song : files.Songs)
    stream << "Song:" << ++number << "=" << song.first << "\n";
  stream << "[Background music]\nStart time=" << files.MusicStart
         << "\nStop time=" << files.MusicStop
         << "\nWeekdays=1234567\nAutostart=" << (files.Autostart ? "True" : "False") << "\n";
}

void WriteSequence(const std::string& folder, const SequenceFile& sequence) {
  std::ofstream(folder + "/" + sequence.Name + ".sch")
      << "[Schedule]\nMessage(s)=" << sequence.Messages << "\nHour(s)=" << sequence.Hours
      << "\nMinute(s)=" << sequence.Minutes << "\nWeekday(s)=" << sequence.Days
      << "\nZone(s)=" << sequence.Zones << "\nTimer=" << sequence.Mode << "\n";
}

}  // namespace

void LayOut(const std::string& folder, const InstallationFiles& files) {
  fs::create_directories(folder + "/Music");
  fs::create_directories(folder + "/Messages");
  WriteSettings(folder, files);
  WritePlaylist(folder, files);
  for (const SequenceFile& sequence : files.Sequences) WriteSequence(folder, sequence);
  bool isWritten = true;
  for (const auto& [name, sound] : files.Songs) {
    isWritten = WriteMp3File(folder + "/Music/" + name + ".mp3", sound) && isWritten;
  }
  for (const auto& [name, sound] : files.Messages) {
    isWritten = WriteWavFile(folder + "/Messages/" + name + ".wav", sound) && isWritten;
  }
  if (!isWritten) throw std::runtime_error("Cannot write the media of " + folder);
}

double LineDb(int position) { return 20 * std::log10((kLastPosition - position) / kLastPosition); }

}  // namespace marlex::stage
