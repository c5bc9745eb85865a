#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/sound/engine_song_player.h"
#include "desktop/sound/engine_wave_player.h"
#include "desktop/sound/media_files.h"
#include "desktop/sound/test_loop.h"

namespace marlex {

/// An engine without a device or a clock: what it plays is rendered on demand and kept.
struct OfflineDesk {
  static constexpr int kBlock = 441;  // 10 ms

  OfflineDesk() : Engine(Loop, {.Offline = true}), Song(Engine), Wave(Engine, Loop) {
    Wave.OnDone = [this] { Journal += "done "; };
    Wave.OnStatusUpdate = [this] { Journal += std::to_string(Wave.Mode()) + " "; };
    Song.OnEndOfStream = [this] { Journal += "end "; };
  }

  /// Renders that much sound, and delivers the events that arise.
  std::vector<float> Render(int frames) {
    std::vector<float> sound(std::size_t(frames) * 2);
    for (int done = 0; done < frames; done += kBlock) {
      Engine.Render(&sound[std::size_t(done) * 2], std::min(kBlock, frames - done));
    }
    Loop.Pump();
    return sound;
  }

  /// Renders until the journal holds `entry`, and returns the sound of that time.
  std::vector<float> RenderUntil(const std::string& entry, double limitSeconds = 60) {
    std::vector<float> sound;
    while (Journal.find(entry) == std::string::npos && sound.size() < limitSeconds * 88200) {
      const std::vector<float> block = Render(kBlock);
      sound.insert(sound.end(), block.begin(), block.end());
    }
    return sound;
  }

  TestLoop Loop;
  MediaFiles Files;
  SoundEngine Engine;
  EngineSongPlayer Song;
  EngineWavePlayer Wave;
  std::string Journal;
};

/// Loudest sample from frame `from` on.
inline float Loudest(const std::vector<float>& sound, std::size_t from = 0,
                     std::size_t frames = 1u << 30) {
  float loudest = 0;
  const std::size_t end = std::min(sound.size() / 2, from + frames);
  for (std::size_t i = from * 2; i < end * 2; ++i) loudest = std::max(loudest, std::fabs(sound[i]));
  return loudest;
}

/// Greatest step between two neighbouring samples of one channel.
inline float GreatestStep(const std::vector<float>& sound) {
  float greatest = 0;
  for (std::size_t i = 2; i < sound.size(); ++i)
    greatest = std::max(greatest, std::fabs(sound[i] - sound[i - 2]));
  return greatest;
}

}  // namespace marlex
