#include "wav_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>

namespace marlex::stage {
namespace {

void Append(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes += char(value >> (8 * i) & 0xFF);
}

/// The canonical 44-byte header of plain PCM.
std::string Header(std::uint32_t dataBytes, std::uint32_t rate) {
  constexpr std::uint32_t kBytesPerSample = 2;
  std::string bytes = "RIFF";
  Append(bytes, 36 + dataBytes, 4);
  bytes += "WAVEfmt ";
  Append(bytes, 16, 4);
  Append(bytes, 1, 2);  // PCM
  Append(bytes, 1, 2);  // one channel
  Append(bytes, rate, 4);
  Append(bytes, rate * kBytesPerSample, 4);
  Append(bytes, kBytesPerSample, 2);
  Append(bytes, 8 * kBytesPerSample, 2);
  bytes += "data";
  Append(bytes, dataBytes, 4);
  return bytes;
}

}  // namespace

bool WriteWav(const std::string& file, const std::vector<float>& samples, int rate) {
  std::string bytes = Header(std::uint32_t(samples.size() * 2), std::uint32_t(rate));
  for (float sample : samples) {
    long value = std::lround(std::clamp(sample, -1.0F, 1.0F) * 32767);
    Append(bytes, std::uint32_t(value) & 0xFFFF, 2);
  }
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), std::streamsize(bytes.size()));
  return stream.good();
}

}  // namespace marlex::stage
