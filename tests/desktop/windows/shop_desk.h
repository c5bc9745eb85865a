#pragma once

#include "desktop/windows/whole_desk.h"

namespace marlex {

/// A shop with the router amplifier, two songs, two messages and one programmed function key, with
/// its main window open.
struct ShopDesk : WholeDesk {
  ShopDesk() {
    for (const char* song : {"march.mp3", "waltz.mp3"}) {
      Place.Write(std::string("music/") + song, "");
      Pc.Disk.AddMp3(MusicFolder() + song, 180'000);
    }
    for (const char* message : {"closing.wav", "gong.wav"}) {
      Place.Write(std::string("messages/") + message, "");
      Pc.Disk.AddWav(MessageFolder() + message, 2000);
    }
    Place.Write("Day.lst", "[Playlist]\r\nSong:1=march\r\nSong:2=waltz\r\n");
    Place.Write("Functionkeys.ini", "[Function key 1]\r\nSchedule=gong\r\nRouting=123456\r\n");
    Profiles.WriteStrings({{"Selected type", "QRT4410/20", "Yes"},
                           {"Used com port", "Com port", "1"},
                           {"Playlist", "Current List", Place.Path("Day.lst")}},
                          Place.Path("Tolvo.ini"));
    Start();
    Pc.Journal.Clear();
  }
};

}  // namespace marlex
