#include "desktop/sound/recording.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "sound/wait.h"

namespace marlex {

Recording::Recording(const std::string& sink) {
  constexpr double kStartLimitSeconds = 20;
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  stage::Command command;
  command.Arguments = {"parec",        "-d",           sink + ".monitor", "--format=float32le",
                       "--rate=44100", "--channels=2", "--raw",           "--latency-msec=10"};
  command.Output = ends[1];
  command.IsRealTime = true;
  Recorder = std::make_unique<stage::ChildProcess>(command);
  close(ends[1]);
  Pipe = ends[0];
  fcntl(Pipe, F_SETFL, O_NONBLOCK);
  if (!stage::WaitUntil([this] { return !Sound().empty(); }, kStartLimitSeconds))
    throw std::runtime_error("nothing can be recorded from " + sink);
}

Recording::~Recording() {
  Recorder->Signal(SIGKILL);
  close(Pipe);
}

const std::vector<float>& Recording::Sound() {
  std::array<char, 65536> block;
  for (ssize_t count = 0; (count = read(Pipe, block.data(), block.size())) > 0;) {
    Bytes.append(block.data(), std::size_t(count));
  }
  const std::size_t whole = Bytes.size() / 8 * 2;
  const std::size_t known = Samples.size();
  Samples.resize(whole);
  if (whole == known) return Samples;
  std::memcpy(&Samples[known], &Bytes[known * 4], (whole - known) * 4);
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  Deliveries.push_back({whole / 2, std::chrono::duration<double>(now).count()});
  return Samples;
}

double Recording::TimeOf(std::size_t frame) const {
  constexpr double kRate = 44100;
  double first = 1e300;  // time at which frame 0 would have come if there were no gap
  for (const Delivery& delivery : Deliveries) {
    if (delivery.Frames <= frame || delivery.Frames > frame + std::size_t(kRate / 2)) continue;
    first = std::min(first, delivery.Seconds - double(delivery.Frames) / kRate);
  }
  return first + double(frame) / kRate;
}

float Recording::Latest(int frames) {
  Sound();
  float loudest = 0;
  const std::size_t begin = Samples.size() - std::min(Samples.size(), std::size_t(frames) * 2);
  for (std::size_t i = begin; i < Samples.size(); ++i)
    loudest = std::max(loudest, std::fabs(Samples[i]));
  return loudest;
}

}  // namespace marlex
