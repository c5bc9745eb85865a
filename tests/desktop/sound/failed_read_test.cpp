#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "desktop/files/open_descriptors.h"
#include "desktop/files/watched_calls.h"
#include "desktop/sound/media_files.h"
#include "desktop/sound/mp3_decoder.h"
#include "desktop/sound/wav_decoder.h"

namespace marlex {
namespace {

using test::OpenDescriptors;
using test::WatchedCalls;

constexpr int kErrors[] = {EIO, EINTR, ENOMEM};

struct Played {
  std::optional<std::vector<float>> Sound;  // nothing when the file is refused
  std::vector<std::string> Calls;
};

/// Plays the whole file while the plan makes a call fail.
Played Play(OpenDecoder open, const std::string& path, const WatchedCalls::Plan& plan) {
  constexpr int kFrames = 4096;
  std::vector<float> block(2 * kFrames);
  Played played;
  WatchedCalls watched(plan);
  if (const auto decoder = open(path)) {
    played.Sound.emplace();
    while (const int count = decoder->Read(block.data(), kFrames))
      played.Sound->insert(played.Sound->end(), block.begin(), block.begin() + count * 2);
  }
  played.Calls = watched.Made;
  return played;
}

bool IsPartOf(const std::vector<float>& whole, const std::vector<float>& part) {
  return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

/// Whatever call fails, the file is refused, or what is heard of it is its beginning. Afterwards it
/// is heard whole.
void ExpectItsBeginning(OpenDecoder open, const std::string& path) {
  const Played good = Play(open, path, {});
  ASSERT_TRUE(good.Sound && good.Sound->size() > 1000);
  ASSERT_GT(good.Calls.size(), 4u);
  const long descriptors = OpenDescriptors();
  for (std::size_t at = 1; at <= good.Calls.size(); ++at) {
    for (const int error : kErrors) {
      SCOPED_TRACE(std::to_string(at) + " " + good.Calls[at - 1] + " " + std::to_string(error));
      const Played faulty = Play(open, path, {.At = at, .Error = error});
      EXPECT_TRUE(!faulty.Sound || IsPartOf(*good.Sound, *faulty.Sound));
      const bool readsAgain = error == EINTR && good.Calls[at - 1].starts_with("pread");
      EXPECT_TRUE(!readsAgain || faulty.Sound == good.Sound);
      EXPECT_EQ(OpenDescriptors(), descriptors);
    }
  }
  EXPECT_TRUE(Play(open, path, {}).Sound == good.Sound);
  std::cout << good.Calls.size() << " calls, " << good.Calls.size() * std::size(kErrors)
            << " runs\n";
}

TEST(FailedRead, OfAMessageEndsIt) {
  MediaFiles files;
  ExpectItsBeginning(OpenWav, files.Wav("message.wav", 3));
}

TEST(FailedRead, OfAMessageThatWasNeverClosedEndsIt) {
  MediaFiles files;
  const std::string sound = Noise(400'000);
  ExpectItsBeginning(OpenWav, files.Write("message.wav", WavBytes({.DataSize = 0}, sound)));
}

TEST(FailedRead, OfASongEndsIt) {
  MediaFiles files;
  ExpectItsBeginning(OpenMp3, files.Mp3("song.mp3", 20));
}

TEST(FailedRead, OfASongWithoutALengthEndsIt) {
  MediaFiles files;
  ExpectItsBeginning(OpenMp3, files.Mp3("song.mp3", 20, 0.5, 44100, "-V 4 -t"));
}

}  // namespace
}  // namespace marlex
