#include "desktop/sound/engine_song_player.h"

#include "desktop/sound/mp3_decoder.h"
#include "desktop/sound/sound_format.h"

namespace marlex {

EngineSongPlayer::~EngineSongPlayer() { Unload(); }

void EngineSongPlayer::SetFileName(const std::string& path) {
  Unload();
  Stream = Engine.Load(path, OpenMp3, EndReport::kHandedOver);
  Path = Stream ? path : std::string();
  Length = 0;
}

/// 0 at first for a file on a slow drive: its length is known once it is open.
double EngineSongPlayer::Duration() const { return Stream ? Stream->Seconds() : Length; }

double EngineSongPlayer::CurrentPosition() const {
  if (State == kStopped || !Stream) return 0;
  return State == kPaused ? PausedAt : double(Stream->FramesPlayed()) / kSampleRate;
}

void EngineSongPlayer::Play() {
  if (Path.empty() || State == kPlaying) return;
  if (!Stream) Stream = Engine.Load(Path, OpenMp3, EndReport::kHandedOver);
  if (!Stream) return;
  State = kPlaying;
  Engine.Play(Stream, [this] { SongEnded(); });
}

void EngineSongPlayer::Pause() {
  if (State != kPlaying) return;
  PausedAt = CurrentPosition();
  State = kPaused;
  Stream->Pause();
}

void EngineSongPlayer::Stop() {
  if (State != kStopped) Unload();
}

/// Releases the stream. A later `Play` starts the file from its beginning.
void EngineSongPlayer::Unload() {
  State = kStopped;
  if (!Stream) return;
  Length = Stream->Seconds();
  Engine.Release(Stream);
  Stream = nullptr;
}

/// An end that arrives after the song was paused is ignored: when the song is resumed, the stream
/// ends once more.
void EngineSongPlayer::SongEnded() {
  if (State == kPaused) return;
  Unload();
  if (OnEndOfStream) OnEndOfStream();
}

}  // namespace marlex
