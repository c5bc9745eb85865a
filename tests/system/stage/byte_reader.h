#pragma once

#include <functional>
#include <string_view>
#include <thread>

namespace marlex::stage {

/// Reads a descriptor on its own thread, so that every piece gets the time at which it arrived,
/// however busy the test is. Takes ownership of the descriptor and closes it.
class ByteReader {
 public:
  /// `piece` is called on the reader's thread with the steady time in seconds and the bytes.
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
