#include "desktop/sound/mp3_frames.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace marlex {
namespace {

constexpr int kHeaderBytes = 4;
constexpr int kChain = 4;  // consecutive frames that prove a stream
// Bytes of junk tolerated before the first frame.
constexpr std::int64_t kSearch = 1024 * 1024;
constexpr std::int64_t kChainRoom = 16 * 1024;  // longer than any chain
constexpr int kTagHeader = 10;                  // bytes of an ID3v2 header
constexpr int kLongestFree = 3456;              // bytes of the longest free-format frame accepted

/// Kilobits per second of layer III by the header's bitrate index (ISO/IEC 11172-3 and 13818-3); 0
/// is the free format, whose frames do not state their length.
constexpr std::array<int, 15> kBitrates1 = {0,   32,  40,  48,  56,  64,  80, 96,
                                            112, 128, 160, 192, 224, 256, 320};
constexpr std::array<int, 15> kBitrates2 = {0,  8,  16, 24,  32,  40,  48, 56,
                                            64, 80, 96, 112, 128, 144, 160};
constexpr std::array<int, 3> kRates1 = {44100, 48000, 32000};

using Bytes = std::vector<std::uint8_t>;

struct Frame {
  std::uint8_t Kind = 0;  // version, layer and protection bits
  std::uint8_t RateIndex = 0;
  bool Free = false;
  int Length = 0;    // bytes; in the free format only the padding
  int SideInfo = 0;  // bytes between the frame header and a Xing header
};

/// Parses a frame header; empty when the bytes are not one.
std::optional<Frame> ReadHeader(const std::uint8_t* b) {
  const int version = b[1] >> 3 & 3;  // 3 is MPEG 1, 2 is MPEG 2, 0 is MPEG 2.5
  const int layer = b[1] >> 1 & 3;    // 1 is layer III
  const int bitrateIndex = b[2] >> 4;
  const int rateIndex = b[2] >> 2 & 3;
  if (b[0] != 0xFF || (b[1] & 0xE0) != 0xE0 || version == 1 || layer != 1) return {};
  if (bitrateIndex == 15 || rateIndex == 3) return {};
  const bool first = version == 3;
  const bool mono = b[3] >> 6 == 3;
  const int rate = kRates1[std::size_t(rateIndex)] / (first ? 1 : version == 2 ? 2 : 4);
  const int bitrate = (first ? kBitrates1 : kBitrates2)[std::size_t(bitrateIndex)] * 1000;
  Frame frame;
  frame.Kind = b[1] & 0xFE;
  frame.RateIndex = std::uint8_t(rateIndex);
  frame.Free = bitrateIndex == 0;
  frame.Length = (first ? 144 : 72) * bitrate / rate + (b[2] >> 1 & 1);
  frame.SideInfo = first ? (mono ? 17 : 32) : (mono ? 9 : 17);
  return frame;
}

Bytes ReadAt(SoundFile& file, std::int64_t offset, std::int64_t count) {
  Bytes bytes(std::size_t(std::max<std::int64_t>(0, std::min(count, file.Size() - offset))));
  file.Seek(offset, SEEK_SET);
  bytes.resize(std::size_t(file.Read(bytes.data(), bytes.size())));
  return bytes;
}

/// Offset past the ID3v2 tags at the beginning of the file. Their sizes use seven bits per byte.
std::int64_t BehindTags(SoundFile& file) {
  std::int64_t offset = 0;
  for (;;) {
    const Bytes tag = ReadAt(file, offset, kTagHeader);
    if (tag.size() < kTagHeader || std::memcmp(tag.data(), "ID3", 3) != 0) return offset;
    const std::int64_t size =
        (tag[6] & 0x7F) << 21 | (tag[7] & 0x7F) << 14 | (tag[8] & 0x7F) << 7 | (tag[9] & 0x7F);
    // A tag that claims to end at or past the end of the file is wrong; look for frames right after
    // its header instead.
    offset += offset + kTagHeader + size < file.Size() ? kTagHeader + size : kTagHeader;
  }
}

/// Whether a chain of frames of one kind starts at `at`; frames of the free format are `freeLength`
/// bytes apart, plus padding. A file that ends within the chain passes if it ends after a complete
/// frame, at a tag, or within the second or a later frame; where the length is a guess, two headers
/// must have been found first.
bool IsChain(const Bytes& bytes, std::size_t at, int freeLength) {
  const auto first = ReadHeader(&bytes[at]);
  if (!first) return false;
  const int least = first->Free ? 2 : 1;
  for (int count = 0; count < kChain; ++count) {
    if (at + kHeaderBytes > bytes.size())
      return count >= least && (at == bytes.size() || count > 1);
    if (std::memcmp(&bytes[at], "TAG", 3) == 0 || std::memcmp(&bytes[at], "APE", 3) == 0)
      return count >= least;
    const auto frame = ReadHeader(&bytes[at]);
    if (!frame || frame->Kind != first->Kind || frame->RateIndex != first->RateIndex ||
        frame->Free != first->Free)
      return false;
    at += std::size_t(frame->Length + freeLength);
  }
  return true;
}

/// Whether a stream begins at `at`. In the free format all frames have the same length, which is
/// found by trying where the second one starts.
bool IsStream(const Bytes& bytes, std::size_t at) {
  const auto first = ReadHeader(&bytes[at]);
  if (!first) return false;
  if (!first->Free) return IsChain(bytes, at, 0);
  for (int length = kHeaderBytes + first->SideInfo; length <= kLongestFree; ++length) {
    if (IsChain(bytes, at, length)) return true;
  }
  return false;
}

std::int64_t NumberAt(const Bytes& bytes, std::size_t at) {
  if (at + 4 > bytes.size()) return 0;
  std::int64_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | bytes[at + i];
  return number;
}

/// Reads the claims of a Xing or Info header in the frame at `at`, if there is one: after its name
/// and its flags come the frame count and the byte count, each present only if its flag is set.
void TakeClaims(const Bytes& bytes, std::size_t at, Mp3Start& start) {
  const std::size_t tag = at + kHeaderBytes + std::size_t(ReadHeader(&bytes[at])->SideInfo);
  if (tag + 8 > bytes.size()) return;
  const std::string_view name(reinterpret_cast<const char*>(&bytes[tag]), 4);
  if (name != "Xing" && name != "Info") return;
  const std::int64_t flags = NumberAt(bytes, tag + 4);
  if (flags & 1) start.ClaimedFrames = NumberAt(bytes, tag + 8);
  if (flags & 2) start.ClaimedBytes = NumberAt(bytes, tag + (flags & 1 ? 12 : 8));
}

/// Whether the file begins like a different kind that may contain MPEG frames somewhere.
bool IsForeign(SoundFile& file) {
  const Bytes bytes = ReadAt(file, 0, 12);
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return text.starts_with("RIFF") || text.starts_with("RF64") || text.starts_with("OggS") ||
         text.starts_with("fLaC") || text.starts_with("FORM") || text.starts_with("PK\3\4") ||
         (text.size() >= 8 && text.substr(4, 4) == "ftyp");
}

}  // namespace

bool FindMp3Start(SoundFile& file, Mp3Start& start) {
  if (IsForeign(file)) return false;
  const std::int64_t offset = BehindTags(file);
  const Bytes bytes = ReadAt(file, offset, kSearch + kChainRoom);
  const std::size_t last = std::min<std::size_t>(bytes.size(), std::size_t(kSearch));
  for (std::size_t at = 0; at + kHeaderBytes <= bytes.size() && at < last; ++at) {
    const void* sync = std::memchr(&bytes[at], 0xFF, last - at);
    if (!sync) return false;
    at = std::size_t(static_cast<const std::uint8_t*>(sync) - bytes.data());
    if (at + kHeaderBytes > bytes.size() || !IsStream(bytes, at)) continue;
    start.FirstFrame = offset + std::int64_t(at);
    TakeClaims(bytes, at, start);
    return true;
  }
  return false;
}

}  // namespace marlex
