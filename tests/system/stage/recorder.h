#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "byte_reader.h"
#include "recording.h"
#include "sound_server.h"

namespace marlex::stage {

/// Records an output of the sound server from its construction on. Its sample times are true to
/// about 20 ms.
class Recorder {
 public:
  Recorder(const SoundServer& server, const std::string& output);
  ~Recorder();

  /// What was recorded so far.
  Recording Take() const;

  /// Level of the last moments.
  double LevelNowDb(double seconds = 0.2) const;

 private:
  void Append(double time, std::string_view bytes);

  mutable std::mutex Lock;
  Recording Sound;
  std::string Rest;  // a sample that was cut by the end of a piece
  std::unique_ptr<ChildProcess> Source;
  std::unique_ptr<ByteReader> Reader;
};

}  // namespace marlex::stage
