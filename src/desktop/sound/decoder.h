#pragma once

#include <memory>
#include <string>

namespace marlex {

/// A sound file, decoded from its beginning to its end on one thread. Whatever goes wrong after a
/// good beginning (the file is cut off, unreadable or gone) counts as the end of the file.
class Decoder {
 public:
  virtual ~Decoder() = default;

  /// Frames per second of what the last `Read` returned; before the first `Read`, of the beginning
  /// of the file.
  virtual int Rate() const = 0;

  /// Length of the sound in seconds.
  virtual double Seconds() const = 0;

  /// Reads at most `frames` stereo frames, all of one rate, and returns how many; 0 at the end.
  virtual int Read(float* stereo, int frames) = 0;
};

/// Opens a file at its beginning; null when it cannot be played.
using OpenDecoder = std::unique_ptr<Decoder> (*)(const std::string& path);

}  // namespace marlex
