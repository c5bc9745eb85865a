#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "byte_reader.h"
#include "recording.h"
#include "sound/sound_server.h"

namespace marlex::stage {

/// Records an output of the sound server, beginning with its construction. Its sample times are
/// accurate to about 20 ms.
class Recorder {
 public:
  Recorder(const SoundServer& server, const std::string& output);
  ~Recorder();

  /// Everything recorded so far.
  Recording Take() const;

  /// Level of the most recent moments.
  double LevelNowDb(double seconds = 0.2) const;

 private:
  void Append(double time, std::string_view bytes);

  mutable std::mutex Lock;
  Recording Sound;
  std::string Rest;  // the start of a sample whose other bytes come with the next piece
  std::unique_ptr<ChildProcess> Source;
  std::unique_ptr<ByteReader> Reader;
};

}  // namespace marlex::stage
