#pragma once

#include <memory>

#include "desktop/sound/sound_engine.h"
#include "platform/song_player.h"

namespace marlex {

/// Plays MP3 files through the engine's wave line.
class EngineSongPlayer : public SongPlayer {
 public:
  /// `engine` must outlive the player.
  explicit EngineSongPlayer(SoundEngine& engine) : Engine(engine) {}
  ~EngineSongPlayer() override;
  EngineSongPlayer(const EngineSongPlayer&) = delete;
  EngineSongPlayer& operator=(const EngineSongPlayer&) = delete;

  void SetFileName(const std::string& path) override;
  std::string FileName() const override { return Path; }
  double Duration() const override;
  double CurrentPosition() const override;
  int PlayState() const override { return State; }
  void Play() override;
  void Pause() override;
  void Stop() override;

 private:
  void Unload();
  void SongEnded();

  SoundEngine& Engine;
  std::string Path;  // empty without a song
  // Null without a song, and from a stop until the song is played again.
  std::shared_ptr<SoundStream> Stream;
  double Length = 0;    // seconds, as far as known
  double PausedAt = 0;  // seconds
  int State = kStopped;
};

}  // namespace marlex
