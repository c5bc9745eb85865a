#include "desktop/sound/wav_file.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace marlex {
namespace {

constexpr std::int64_t kFirstChunk = 12;  // past "RIFF", the size and "WAVE"
constexpr std::int64_t kChunkHeader = 8;  // name and size
constexpr std::size_t kName = 4;
constexpr int kMostChunks = 1000;  // the most that are scanned

/// Chunks begin at even offsets.
std::int64_t Even(std::int64_t offset) { return offset + offset % 2; }

}  // namespace

bool WavFile::Open(const std::string& path) {
  char head[kFirstChunk];
  if (!File.Open(path) || !ReadAt(0, head, sizeof head)) return false;
  BigEndian = std::memcmp(head, "RIFX", kName) == 0;
  const bool wav = BigEndian || std::memcmp(head, "RIFF", kName) == 0;
  const bool large = std::memcmp(head, "RF64", kName) == 0;
  if ((!wav && !large) || std::memcmp(head + 8, "WAVE", kName) != 0) return false;
  const std::int64_t data = FindData();
  const std::int64_t sound = data + kChunkHeader;
  if (data >= 0 && SizeAt(data + std::int64_t(kName)) == 0 && !IsChunks(sound)) {
    SetDataSize(data + std::int64_t(kName));
  }
  File.Seek(0, SEEK_SET);
  return true;
}

bool WavFile::ReadAt(std::int64_t offset, void* buffer, std::size_t bytes) {
  return File.Seek(offset, SEEK_SET) == offset && File.Read(buffer, bytes) == ssize_t(bytes);
}

std::uint32_t WavFile::SizeAt(std::int64_t offset) {
  std::array<unsigned char, kSizeBytes> bytes = {};
  ReadAt(offset, bytes.data(), bytes.size());
  if (BigEndian) std::reverse(bytes.begin(), bytes.end());
  return bytes[0] | bytes[1] << 8 | bytes[2] << 16 | std::uint32_t(bytes[3]) << 24;
}

/// Offset of the chunk with the sound; -1 without one.
std::int64_t WavFile::FindData() {
  std::int64_t at = kFirstChunk;
  char name[kName];
  for (int count = 0; count < kMostChunks && ReadAt(at, name, kName); ++count) {
    if (std::memcmp(name, "data", kName) == 0) return at;
    at = Even(at + kChunkHeader + SizeAt(at + std::int64_t(kName)));
  }
  return -1;
}

/// Whether there is nothing but whole chunks from `at` to the end of the file.
bool WavFile::IsChunks(std::int64_t at) {
  char name[kName];
  for (int count = 0; count < kMostChunks && at < Size(); ++count) {
    if (!ReadAt(at, name, kName)) return false;
    const auto prints = [](unsigned char letter) { return letter >= ' ' && letter <= '~'; };
    if (!std::all_of(name, name + kName, prints)) return false;
    const std::int64_t end = at + kChunkHeader + SizeAt(at + std::int64_t(kName));
    if (end > Size()) return false;
    at = Even(end);
  }
  return at >= Size();
}

/// Makes the size at `offset` read as the size of all that follows it.
void WavFile::SetDataSize(std::int64_t offset) {
  const std::int64_t most = std::numeric_limits<std::uint32_t>::max() - 1;
  const std::int64_t size = std::min(Size() - offset - std::int64_t(kSizeBytes), most);
  for (std::size_t i = 0; i < kSizeBytes; ++i) DataSize[i] = char(size >> 8 * i);
  if (BigEndian) std::reverse(DataSize.begin(), DataSize.end());
  DataSizeAt = offset;
}

ssize_t WavFile::Read(void* buffer, std::size_t bytes) {
  const std::int64_t from = File.Seek(0, SEEK_CUR);
  const ssize_t count = File.Read(buffer, bytes);
  for (std::size_t i = 0; DataSizeAt >= 0 && i < kSizeBytes; ++i) {
    const std::int64_t at = DataSizeAt + std::int64_t(i) - from;
    if (at >= 0 && at < count) static_cast<char*>(buffer)[at] = DataSize[i];
  }
  return count;
}

}  // namespace marlex
