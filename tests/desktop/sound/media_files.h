#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace marlex {

/// A directory of sound files for one test, deleted with it.
class MediaFiles {
 public:
  MediaFiles();
  ~MediaFiles();
  MediaFiles(const MediaFiles&) = delete;
  MediaFiles& operator=(const MediaFiles&) = delete;

  std::string Path(const std::string& name) const { return (Directory / name).string(); }

  /// A sine of `amplitude` on both sides, 16 bits.
  std::string Wav(const std::string& name, double seconds, double amplitude = 0.5, int rate = 44100,
                  double frequency = 441);

  /// The same, encoded by lame with additional `options`.
  std::string Mp3(const std::string& name, double seconds, double amplitude = 0.5, int rate = 44100,
                  const std::string& options = "-b 128", double frequency = 441);

  std::string Write(const std::string& name, const std::string& bytes);
  static std::string Read(const std::string& path);

 private:
  std::filesystem::path Directory;
};

/// `size` bytes without any pattern; the same seed gives the same bytes.
std::string Noise(std::size_t size, std::uint32_t seed = 1);

/// The bytes of a WAV of 16-bit silence; the test may put false values into its header.
struct WavHeader {
  std::uint32_t RiffSize = 36;
  std::uint16_t Format = 1;
  std::uint16_t Channels = 2;
  std::uint32_t Rate = 44100;
  std::uint16_t BlockAlign = 4;
  std::uint16_t Bits = 16;
  std::uint32_t DataSize = 0;
};
std::string WavBytes(const WavHeader& header, const std::string& data);

}  // namespace marlex
