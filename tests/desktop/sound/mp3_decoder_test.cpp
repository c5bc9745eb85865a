#include "desktop/sound/mp3_decoder.h"

#include <gtest/gtest.h>

#include <cmath>

#include "desktop/sound/media_files.h"
#include "desktop/sound/rate_converter.h"

namespace marlex {
namespace {

/// Everything that the file gives at the engine's rate.
std::vector<float> Play(Decoder& decoder) {
  std::vector<float> sound;
  std::vector<float> block(2 * 4096);
  while (const int count = decoder.Read(block.data(), 4096)) {
    sound.insert(sound.end(), block.begin(), block.begin() + count * 2);
  }
  return sound;
}

/// Seconds of sound that the file gives; -1 when it is refused.
double PlayedSeconds(const std::string& path) {
  auto decoder = OpenMp3(path);
  if (!decoder) return -1;
  RateConverter converter(std::move(decoder));
  return double(Play(converter).size()) / 2 / 44100;
}

double ReportedSeconds(const std::string& path) {
  const auto decoder = OpenMp3(path);
  return decoder ? decoder->Seconds() : -1;
}

std::string PictureTag(std::size_t bytes) {
  std::string tag = "ID3\x04";
  tag += std::string(2, '\0');
  for (int shift = 21; shift >= 0; shift -= 7) tag += char(bytes >> shift & 0x7F);
  return tag + Noise(bytes, 7);
}

TEST(Mp3Decoder, ReportsAndPlaysTheTrueLengthOfEveryKindOfFile) {
  MediaFiles files;
  // At the lowest bitrates lame has no room for the header that says how much silence it added.
  for (const char* options : {"-b 128", "-V 2", "-b 64 -m m", "-b 320 --resample 48", "--abr 100",
                              "-b 32 --resample 16", "-b 8 -m m --resample 8"}) {
    const bool exact = std::string(options).find("--resample 48") != std::string::npos ||
                       std::string(options).find("--resample") == std::string::npos;
    const std::string song = files.Mp3("song.mp3", 3, 0.5, 44100, options);
    EXPECT_NEAR(ReportedSeconds(song), 3, exact ? 0.001 : 0.2) << options;
    EXPECT_NEAR(PlayedSeconds(song), ReportedSeconds(song), 0.001) << options;
  }
}

TEST(Mp3Decoder, WithoutALengthHeaderTheFileIsReadThrough) {
  MediaFiles files;
  const std::string song = files.Mp3("song.mp3", 20, 0.5, 44100, "-V 4 -t");
  EXPECT_NEAR(ReportedSeconds(song), PlayedSeconds(song), 0.001);
  EXPECT_NEAR(ReportedSeconds(song), 20, 0.1);
}

TEST(Mp3Decoder, ALengthHeaderThatLiesIsNotBelieved) {
  MediaFiles files;
  const std::string song = files.Mp3("song.mp3", 5);
  const std::string bytes = MediaFiles::Read(song);
  const std::size_t tag = bytes.find("Info");
  ASSERT_NE(tag, std::string::npos);
  for (const std::string& claim : {std::string("\xFF\xFF\xFF\xFF"), std::string("\0\0\0\2", 4)}) {
    std::string lie = bytes;
    lie.replace(tag + 8, 4, claim);
    files.Write("lie.mp3", lie);
    EXPECT_NEAR(ReportedSeconds(files.Path("lie.mp3")), 5, 0.1);
    EXPECT_NEAR(PlayedSeconds(files.Path("lie.mp3")), 5, 0.1);
  }
}

/// The file without the byte count in its length header.
std::string WithoutByteCount(std::string bytes) {
  const std::size_t tag = std::min(bytes.find("Info"), bytes.find("Xing"));
  if (tag == std::string::npos || bytes[tag + 7] != 0x0F) ADD_FAILURE() << "no length header";
  bytes[tag + 7] = 0x0D;
  bytes.erase(tag + 12, 4);
  // Whatever follows the header moves up within its frame.
  return bytes.insert(bytes.find("\xFF\xFB", tag), std::string(4, '\0'));
}

TEST(Mp3Decoder, AJoinedFileWhoseHeaderCountsNoBytesIsReadThrough) {
  MediaFiles files;
  const std::string first = WithoutByteCount(MediaFiles::Read(files.Mp3("first.mp3", 5)));
  for (const int rate : {44100, 48000}) {
    const std::string second =
        WithoutByteCount(MediaFiles::Read(files.Mp3("second.mp3", 3, 0.5, rate)));
    const std::string joined = files.Write("joined.mp3", first + second);
    EXPECT_NEAR(ReportedSeconds(joined), 8, 0.2) << rate;
    EXPECT_NEAR(PlayedSeconds(joined), 8, 0.2) << rate;
  }
  EXPECT_NEAR(ReportedSeconds(files.Write("alone.mp3", first)), 5, 0.1);
  EXPECT_NEAR(PlayedSeconds(files.Path("alone.mp3")), 5, 0.1);
}

TEST(Mp3Decoder, PlaysOnAfterJunkInMidFile) {
  MediaFiles files;
  const std::string bytes = MediaFiles::Read(files.Mp3("song.mp3", 6));
  const std::size_t middle = bytes.size() / 2;
  const std::string second = MediaFiles::Read(files.Mp3("other.mp3", 2));
  const std::vector<std::pair<std::string, std::string>> intruders = {
      {"2 KB of junk", Noise(2048)},           {"200 KB of junk", Noise(200 * 1024)},
      {"zeros", std::string(100000, '\0')},    {"a second tag", PictureTag(5000)},
      {"a 3 MB picture", PictureTag(3 << 20)},
  };
  for (const auto& [name, junk] : intruders) {
    const std::string path =
        files.Write("junk.mp3", bytes.substr(0, middle) + junk + bytes.substr(middle));
    // Junk that looks like a frame may be heard as one.
    EXPECT_NEAR(PlayedSeconds(path), 6.4, 0.7) << name;
  }
  const std::string joined = files.Write("joined.mp3", bytes + second);
  EXPECT_NEAR(PlayedSeconds(joined), 8, 0.2);
  EXPECT_NEAR(ReportedSeconds(joined), 8, 0.2);
}

/// Waves of the left channel, and how many of them are not `frames` frames long, within 3 %.
struct Waves {
  int All = 0;
  int Odd = 0;
};

Waves WavesOf(const std::vector<float>& sound, double frames) {
  Waves waves;
  double last = -1;
  bool fell = false;  // far enough that the next rise is not the end of a fading tone
  for (std::size_t i = 2; i < sound.size(); i += 2) {
    fell = fell || sound[i] < -0.2;
    if (!fell || sound[i] < 0) continue;
    fell = false;
    const double at = double(i) / 2 - sound[i] / (sound[i] - sound[i - 2]);
    if (last >= 0) {
      ++waves.All;
      waves.Odd += std::fabs(at - last - frames) > 0.03 * frames;
    }
    last = at;
  }
  return waves;
}

TEST(Mp3Decoder, AChangeOfTheRateInMidFileKeepsPitchAndLength) {
  MediaFiles files;
  const auto tone = [&](int rate, const std::string& options) {
    return MediaFiles::Read(files.Mp3("tone.mp3", 3, 0.5, rate, options));
  };
  for (const auto& [first, second] :
       {std::pair(44100, 48000), {44100, 22050}, {22050, 44100}, {48000, 44100}}) {
    for (const char* options : {"-b 128", "-b 128 -t", "-V 4 -t"}) {
      const std::string path =
          files.Write("joined.mp3", tone(first, options) + tone(second, options));
      auto decoder = OpenMp3(path);
      ASSERT_NE(decoder, nullptr);
      EXPECT_NEAR(decoder->Seconds(), 6, 0.15) << first << " " << second << options;
      RateConverter converter(std::move(decoder));
      const std::vector<float> sound = Play(converter);
      EXPECT_NEAR(double(sound.size()) / 2 / 44100, 6, 0.15) << first << " " << second << options;
      const Waves waves = WavesOf(sound, 100);  // 441 Hz
      EXPECT_NEAR(waves.All, 2646, 15) << first << " " << second << options;
      EXPECT_LE(waves.Odd, 3) << first << " " << second << options;
    }
  }
}

TEST(Mp3Decoder, TheFreeFormatPlaysAtEveryBitrate) {
  MediaFiles files;
  for (const char* options : {"-b 200", "-b 333", "-b 440 -t", "-b 640", "-b 97 -m m -t",
                              "-b 100 --resample 22.05", "-b 33 --resample 8 -m m"}) {
    const std::string song =
        files.Mp3("free.mp3", 3, 0.5, 44100, std::string("--freeformat ") + options);
    auto decoder = OpenMp3(song);
    ASSERT_NE(decoder, nullptr) << options;
    EXPECT_NEAR(decoder->Seconds(), 3, 0.2) << options;
    RateConverter converter(std::move(decoder));
    const std::vector<float> sound = Play(converter);
    EXPECT_NEAR(double(sound.size()) / 2 / 44100, 3, 0.2) << options;
    const Waves waves = WavesOf(sound, 100);
    EXPECT_NEAR(waves.All, 1323, 15) << options;
    EXPECT_LE(waves.Odd, 3) << options;
  }
}

TEST(Mp3Decoder, PlaysAfterTagsAndJunkAtTheBeginning) {
  MediaFiles files;
  const std::string bytes = MediaFiles::Read(files.Mp3("song.mp3", 2));
  std::string liar = PictureTag(100);
  liar.replace(6, 4, "\x7F\x7F\x7F\x7F");
  for (const std::string& head : {PictureTag(3 << 20), PictureTag(10) + PictureTag(20), Noise(2048),
                                  Noise(200 * 1024), std::string(50000, '\0'), liar}) {
    EXPECT_NEAR(PlayedSeconds(files.Write("head.mp3", head + bytes)), 2, 0.1);
  }
}

TEST(Mp3Decoder, ACutFilePlaysAsFarAsItGoes) {
  MediaFiles files;
  const std::string bytes = MediaFiles::Read(files.Mp3("song.mp3", 4));
  const std::string cut = files.Write("cut.mp3", bytes.substr(0, bytes.size() / 2 + 77));
  EXPECT_NEAR(PlayedSeconds(cut), 2, 0.2);
  EXPECT_NEAR(ReportedSeconds(cut), 2, 0.2);
}

TEST(Mp3Decoder, RefusesWhatIsNoMp3) {
  MediaFiles files;
  EXPECT_EQ(OpenMp3(files.Path("missing.mp3")), nullptr);
  EXPECT_EQ(OpenMp3(""), nullptr);
  EXPECT_EQ(OpenMp3(files.Path("")), nullptr);  // the directory
  EXPECT_EQ(OpenMp3("/dev/zero"), nullptr);
  EXPECT_EQ(OpenMp3(files.Wav("wav.mp3", 2, 0.9)), nullptr);
  EXPECT_EQ(OpenMp3(files.Write("empty.mp3", "")), nullptr);
  EXPECT_EQ(OpenMp3(files.Write("short.mp3", "\xFF\xFB")), nullptr);
  EXPECT_EQ(OpenMp3(files.Write("zeros.mp3", std::string(300000, '\0'))), nullptr);
  EXPECT_EQ(OpenMp3(files.Write("ones.mp3", std::string(300000, '\xFF'))), nullptr);
  EXPECT_EQ(OpenMp3(files.Write("text.mp3", std::string(5000, 'a'))), nullptr);
  EXPECT_EQ(OpenMp3(files.Write("tag.mp3", PictureTag(5000))), nullptr);
  EXPECT_EQ(OpenMp3(files.Write("syncs.mp3", std::string("\xFF\xFB\x90\x64") + Noise(4000))),
            nullptr);
}

TEST(Mp3Decoder, NoiseIsRefusedWhateverItsBytes) {
  MediaFiles files;
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    EXPECT_EQ(OpenMp3(files.Write("noise.mp3", Noise(400000, seed))), nullptr) << seed;
  }
}

TEST(Mp3Decoder, ADamagedFileNeverHangsOrCrashes) {
  MediaFiles files;
  const std::string bytes = MediaFiles::Read(files.Mp3("song.mp3", 3, 0.5, 44100, "-V 4"));
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    std::string damaged = bytes;
    const std::string noise = Noise(3 * 60 + seed, seed);
    for (std::size_t i = 0; i + 2 < noise.size(); i += 3) {
      const std::size_t at = (std::uint8_t(noise[i]) << 8 | std::uint8_t(noise[i + 1])) * 1ul;
      damaged[at % damaged.size()] = noise[i + 2];
    }
    EXPECT_LT(PlayedSeconds(files.Write("damaged.mp3", damaged)), 60) << seed;
  }
}

TEST(Mp3Decoder, VeryShortSongsAreSongs) {
  MediaFiles files;
  for (const double seconds : {0.0, 0.001, 0.02, 0.1}) {
    const std::string song = files.Mp3("song.mp3", seconds);
    EXPECT_NEAR(PlayedSeconds(song), seconds, 0.03) << seconds;
  }
}

}  // namespace
}  // namespace marlex
