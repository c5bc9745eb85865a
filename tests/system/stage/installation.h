#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tones.h"

namespace marlex::stage {

/// A song or a message: its name without extension, and its sound.
using NamedSound = std::pair<std::string, Sound>;

/// One sequence file.
struct SequenceFile {
  std::string Name;      // without extension
  std::string Messages;  // separated by commas
  std::string Hours;
  std::string Minutes;
  std::string Zones = "123456";
  std::string Mode = "Exact";
  std::string Days = "1234567";
};

/// The files of an installation. Volumes are slider positions: 0 is the loudest, 65535 silent.
struct InstallationFiles {
  std::vector<NamedSound> Songs;
  std::vector<NamedSound> Messages;
  std::vector<SequenceFile> Sequences;
  int MusicVolume = 20'000;
  int MessageVolume = 10'000;
  int MasterVolume = 0;
  std::string FadeTime = "Fast";
  std::string Priority = "High";
  std::string MusicRouting = "110000";
  std::string CallRouting = "100000";
  std::vector<std::string> ZoneNames;  // from the first zone on
  int MicroVolume = 20'000;
  std::string PreChime;  // names of messages; empty for none
  std::string PostChime;
  bool HasRouter = true;
  bool Autostart = true;
  std::string MusicStart;  // of the music's clock, "09:00"; empty for none
  std::string MusicStop;
  int LastSong = 0;
};

/// Writes all files into a folder: Tolvo.ini, Day.lst, the sequences, Music and Messages.
void LayOut(const std::string& folder, const InstallationFiles& files);

/// Attenuation of the engine's line, in decibels, at a slider position.
double LineDb(int position);

}  // namespace marlex::stage
