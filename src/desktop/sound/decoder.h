#pragma once

#include <memory>
#include <string>

namespace marlex {

/// A sound file that is read from its beginning to its end, on one thread. Whatever is wrong with
/// the file behind its beginning (cut off, unreadable, gone) is its end.
class Decoder {
 public:
  virtual ~Decoder() = default;

  /// Frames a second of what the last `Read` gave; before the first one, of the file's beginning.
  virtual int Rate() const = 0;

  /// Length of the sound in seconds.
  virtual double Seconds() const = 0;

  /// Reads at most `frames` stereo frames of one rate and returns their number; 0 is the end.
  virtual int Read(float* stereo, int frames) = 0;
};

/// Opens a file at its beginning; null when it cannot be played.
using OpenDecoder = std::unique_ptr<Decoder> (*)(const std::string& path);

}  // namespace marlex
