#pragma once

#include <memory>
#include <string>

#include "contracts/both_pcs.h"
#include "platform/media_check.h"
#include "platform/song_player.h"
#include "platform/wave_player.h"

namespace marlex {

/// The two players of one of the PCs, on a clock that the test moves, and files for them.
class PlayerBench {
 public:
  virtual ~PlayerBench() = default;

  virtual WavePlayer& Wave() = 0;
  virtual SongPlayer& Song() = 0;

  /// Looks at the same files, in real time on the real PC.
  virtual MediaCheck& Check() = 0;

  /// Lets so much time pass, and delivers the events of it; with 0, those that are due.
  virtual void Advance(int ms) = 0;

  /// Make a file of this length and return its path.
  virtual std::string Wav(const std::string& name, int lengthMs) = 0;
  virtual std::string Mp3(const std::string& name, int lengthMs) = 0;

  /// Makes a file that is no sound, whatever its name, and returns its path.
  virtual std::string Noise(const std::string& name) = 0;

  virtual std::string Path(const std::string& name) const = 0;
  virtual void Remove(const std::string& path) = 0;

  /// From now on the lengths of files do not become known, until they arrive.
  virtual void HoldLengths() = 0;
  virtual void LetLengthsArrive() = 0;
};

std::unique_ptr<PlayerBench> MakePlayerBench(PcKind pc);

}  // namespace marlex
