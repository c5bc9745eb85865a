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

/// A file on a slow drive tells its length late.
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

/// Lets go of the stream. One that is played after that starts from the file again.
void EngineSongPlayer::Unload() {
  State = kStopped;
  if (!Stream) return;
  Length = Stream->Seconds();
  Engine.Release(Stream);
  Stream = nullptr;
}

/// The end of a song that was paused in the meantime waits: when the song goes on, the stream ends
/// once more.
void EngineSongPlayer::SongEnded() {
  if (State == kPaused) return;
  Unload();
  if (OnEndOfStream) OnEndOfStream();
}

}  // namespace marlex
