#include "recorder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "sound/wait.h"

namespace marlex::stage {

Recorder::Recorder(const SoundServer& server, const std::string& output) {
  constexpr double kStartLimitSeconds = 20;
  Sound.Rate = SoundServer::kSampleRate;
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("The system has no pipe left.");
  Reader = std::make_unique<ByteReader>(
      ends[0], [this](double time, std::string_view bytes) { Append(time, bytes); });
  Source = server.Record(output, ends[1]);
  if (!WaitUntil([this] { return !Take().Samples.empty(); }, kStartLimitSeconds)) {
    throw std::runtime_error("Nothing can be recorded from " + output + ".");
  }
}

Recorder::~Recorder() = default;

Recording Recorder::Take() const {
  std::lock_guard guard(Lock);
  return Sound;
}

double Recorder::LevelNowDb(double seconds) const {
  std::lock_guard guard(Lock);
  return Sound.LevelDb(Sound.EndTime() - seconds, Sound.EndTime());
}

void Recorder::Append(double time, std::string_view bytes) {
  constexpr size_t kFrameBytes = 2 * SoundServer::kChannels;
  std::lock_guard guard(Lock);
  Rest += bytes;
  size_t frames = Rest.size() / kFrameBytes;
  for (size_t i = 0; i < frames; ++i) {
    std::int16_t pair[SoundServer::kChannels];
    std::memcpy(pair, Rest.data() + i * kFrameBytes, kFrameBytes);
    Sound.Samples.push_back(float(pair[0] + pair[1]) / 2 / 32768);
  }
  Rest.erase(0, frames * kFrameBytes);
  // A piece may come late but never early, so the earliest start that follows from any piece is the
  // right one.
  double start = time - double(Sound.Samples.size()) / Sound.Rate;
  bool isFirst = Sound.StartTime == 0;
  if (isFirst || start < Sound.StartTime) Sound.StartTime = start;
}

}  // namespace marlex::stage
