#pragma once

#include <functional>
#include <string_view>
#include <thread>

namespace marlex::stage {

/// Reads a descriptor on a thread of its own, so that every piece gets the time at which it came,
/// however busy the test is. Takes the descriptor over and closes it.
class ByteReader {
 public:
  /// `piece` gets the steady time in seconds and the bytes, on the reader's thread.
  using Piece = std::function<void(double time, std::string_view bytes)>;
  ByteReader(int descriptor, Piece piece);
  ~ByteReader();
  ByteReader(const ByteReader&) = delete;
  ByteReader& operator=(const ByteReader&) = delete;

  int Descriptor() const { return Source; }

 private:
  void ReadAll();

  int Source;
  int StopEnd[2];
  Piece OnPiece;
  std::thread Thread;
};

}  // namespace marlex::stage
