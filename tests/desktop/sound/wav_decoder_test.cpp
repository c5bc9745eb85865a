#include "desktop/sound/wav_decoder.h"

#include <gtest/gtest.h>
#include <sndfile.h>
#include <chrono>

#include <cmath>
#include <limits>

#include "desktop/sound/media_files.h"
#include "desktop/sound/rate_converter.h"

namespace marlex {
namespace {

/// Everything that the file gives at the engine's rate.
std::vector<float> Play(const std::string& path) {
  std::vector<float> sound;
  auto decoder = OpenWav(path);
  if (!decoder) return sound;
  RateConverter converter(std::move(decoder));
  std::vector<float> block(2 * 4096);
  while (const int count = converter.Read(block.data(), 4096)) {
    sound.insert(sound.end(), block.begin(), block.begin() + count * 2);
    if (sound.size() > 88200u * 600) break;
  }
  return sound;
}

std::string WriteSound(MediaFiles& files, int format, int channels, int rate,
                       const std::vector<float>& frame) {
  SF_INFO info = {};
  info.samplerate = rate;
  info.channels = channels;
  info.format = format;
  std::string path = files.Path("sound.wav");
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  for (int i = 0; i < rate; ++i) sf_writef_float(file, frame.data(), 1);
  sf_close(file);
  return path;
}

TEST(WavDecoder, PlaysEveryWidthOfNumbers) {
  MediaFiles files;
  for (const int width : {SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32,
                          SF_FORMAT_FLOAT, SF_FORMAT_DOUBLE, SF_FORMAT_ULAW, SF_FORMAT_ALAW}) {
    const std::vector<float> sound =
        Play(WriteSound(files, SF_FORMAT_WAV | width, 2, 44100, {0.5f, -0.25f}));
    ASSERT_EQ(sound.size(), 88200u) << std::hex << width;
    EXPECT_NEAR(sound[44100], 0.5, 0.02) << std::hex << width;
    EXPECT_NEAR(sound[44101], -0.25, 0.02) << std::hex << width;
  }
}

TEST(WavDecoder, FindsAFileWhoseExtensionIsWrittenInCapitals) {
  MediaFiles files;
  files.Wav("DING.WAV", 1, 0.5, 44100);
  EXPECT_EQ(Play(files.Path("DING.wav")).size(), 88200u);
}

TEST(WavDecoder, PlaysEveryRateAtTheEnginesRate) {
  MediaFiles files;
  for (const int rate : {8000, 11025, 16000, 22050, 32000, 44100, 48000, 96000, 192000}) {
    const std::string path = files.Wav("sound.wav", 1, 0.5, rate);
    const std::vector<float> sound = Play(path);
    EXPECT_NEAR(double(sound.size()) / 2, 44100, 2) << rate;
    float loudest = 0;
    int crossings = 0;
    for (std::size_t i = 8820; i < 79380; i += 2) {
      loudest = std::max(loudest, sound[i]);
      crossings += sound[i] < 0 && sound[i + 2] >= 0;
    }
    EXPECT_NEAR(loudest, 0.5, 0.005) << rate;
    EXPECT_NEAR(crossings, 353, 1) << rate;  // 0.8 seconds of 441 Hz
    EXPECT_NEAR(OpenWav(path)->Seconds(), 1, 1e-9);
  }
}

TEST(WavDecoder, AMonoFileSoundsOnBothSides) {
  MediaFiles files;
  const std::vector<float> mono =
      Play(WriteSound(files, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 44100, {0.5f}));
  ASSERT_EQ(mono.size(), 88200u);
  EXPECT_NEAR(mono[1000], 0.5, 0.001);
  EXPECT_NEAR(mono[1001], 0.5, 0.001);
}

/// The percentage of one channel, in a file of `channels`, that each of the two sides gets.
std::pair<long, long> HeardOf(int format, int channels, int channel) {
  MediaFiles files;
  std::vector<float> frame(std::size_t(channels), 0);
  frame[std::size_t(channel)] = 0.1f;
  const std::vector<float> sound =
      Play(WriteSound(files, format | SF_FORMAT_PCM_16, channels, 4410, frame));
  if (sound.size() != 88200u) return {-1, -1};
  return {std::lround(sound[44100] * 1000), std::lround(sound[44101] * 1000)};
}

TEST(WavDecoder, OfManyChannelsEachIsHeardWhereItBelongs) {
  using Sides = std::pair<long, long>;
  const Sides left(100, 0), right(0, 100), centre(71, 71), none(0, 0);
  const Sides leftRear(71, 0), rightRear(0, 71);
  // Left, right, centre, low frequencies, and two or four rear channels, as the file says or as is
  // usual.
  for (const int format : {SF_FORMAT_WAVEX, SF_FORMAT_WAV}) {
    for (const int channels : {6, 8}) {
      EXPECT_EQ(HeardOf(format, channels, 0), left) << channels;
      EXPECT_EQ(HeardOf(format, channels, 1), right) << channels;
      EXPECT_EQ(HeardOf(format, channels, 2), centre) << channels;
      EXPECT_EQ(HeardOf(format, channels, 3), none) << channels;
      for (int rear = 4; rear < channels; rear += 2) {
        EXPECT_EQ(HeardOf(format, channels, rear), leftRear) << channels;
        EXPECT_EQ(HeardOf(format, channels, rear + 1), rightRear) << channels;
      }
    }
    EXPECT_EQ(HeardOf(format, 4, 2), leftRear);
    EXPECT_EQ(HeardOf(format, 4, 3), rightRear);
  }
  for (const int channels : {3, 5, 7}) {
    EXPECT_EQ(HeardOf(SF_FORMAT_WAV, channels, 0), left) << channels;
    EXPECT_EQ(HeardOf(SF_FORMAT_WAV, channels, 1), right) << channels;
    EXPECT_EQ(HeardOf(SF_FORMAT_WAV, channels, 2), centre) << channels;
  }
  EXPECT_EQ(HeardOf(SF_FORMAT_WAV, 5, 3), leftRear);
  EXPECT_EQ(HeardOf(SF_FORMAT_WAV, 5, 4), rightRear);
  EXPECT_EQ(HeardOf(SF_FORMAT_WAV, 16, 15), centre);
}

TEST(WavDecoder, NumbersThatAreNoneAreSilence) {
  MediaFiles files;
  const float none = std::numeric_limits<float>::quiet_NaN();
  const float endless = std::numeric_limits<float>::infinity();
  const std::vector<float> sound =
      Play(WriteSound(files, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2, 44100, {none, endless}));
  ASSERT_EQ(sound.size(), 88200u);
  for (const float sample : sound) ASSERT_EQ(sample, 0);
}

TEST(WavDecoder, RefusesWhatIsNoWav) {
  MediaFiles files;
  EXPECT_EQ(OpenWav(files.Path("missing.wav")), nullptr);
  EXPECT_EQ(OpenWav(""), nullptr);
  EXPECT_EQ(OpenWav(files.Path("")), nullptr);
  EXPECT_EQ(OpenWav("/dev/zero"), nullptr);
  EXPECT_EQ(OpenWav(files.Write("empty.wav", "")), nullptr);
  EXPECT_EQ(OpenWav(files.Write("noise.wav", Noise(5000))), nullptr);
  EXPECT_EQ(OpenWav(files.Mp3("mp3.wav", 1)), nullptr);
  EXPECT_EQ(OpenWav(files.Write("riff.wav", "RIFF\xFF\xFF\xFF\xFFWAVE")), nullptr);
}

TEST(WavDecoder, ImpossibleHeadersAreRefused) {
  MediaFiles files;
  WavHeader noRate;
  noRate.Rate = 0;
  WavHeader wildRate;
  wildRate.Rate = 4000000000u;
  WavHeader noChannels;
  noChannels.Channels = 0;
  WavHeader manyChannels;
  manyChannels.Channels = 65535;
  WavHeader unknown;
  unknown.Format = 0x7777;
  for (WavHeader header : {noRate, wildRate, noChannels, manyChannels, unknown}) {
    header.DataSize = 4000;
    EXPECT_EQ(OpenWav(files.Write("bad.wav", WavBytes(header, std::string(4000, '\1')))), nullptr);
  }
}

TEST(WavDecoder, DataSizesThatLieNeverHang) {
  MediaFiles files;
  const std::string data(40000, '\x10');
  for (const std::uint32_t size : {0u, 1u, 3u, 39999u, 40000u, 50000u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    for (const std::uint32_t riff : {0u, 36u, 40036u, 0xFFFFFFFFu}) {
      WavHeader header;
      header.DataSize = size;
      header.RiffSize = riff;
      const std::vector<float> sound = Play(files.Write("lie.wav", WavBytes(header, data)));
      EXPECT_LE(sound.size() / 2, 10000u) << size << " " << riff;
      if (size == 0 || size >= 40000) {
        EXPECT_EQ(sound.size() / 2, 10000u) << size << " " << riff;
      }
    }
  }
  EXPECT_TRUE(Play(files.Write("head.wav", WavBytes({}, ""))).empty());
}

std::string Chunk(const char* name, std::uint32_t size, const std::string& content) {
  std::string bytes = name;
  for (int i = 0; i < 4; ++i) bytes += char(size >> (8 * i));
  return bytes + content;
}

/// A recorder that lost its power leaves a data size of 0 followed by all its sound.
TEST(WavDecoder, ARecordingThatWasNeverClosedPlaysToItsEnd) {
  MediaFiles files;
  const std::string sound(40000, '\x10');
  const std::string head = WavBytes({}, "");
  const std::string list = Chunk("LIST", 4, "INFO");
  const auto frames = [&](const std::string& bytes) {
    return Play(files.Write("open.wav", bytes)).size() / 2;
  };
  EXPECT_EQ(frames(head + sound), 10000u);
  EXPECT_EQ(frames(head + sound + "xyz"), 10000u);
  EXPECT_EQ(frames(head + std::string(40000, '\0')), 10000u);
  EXPECT_EQ(frames(head.substr(0, 12) + list + head.substr(12) + sound), 10000u);
  EXPECT_DOUBLE_EQ(OpenWav(files.Write("open.wav", head + sound))->Seconds(), 10000.0 / 44100);
  // A recorder that was closed properly and recorded nothing has other chunks there, and no sound.
  EXPECT_EQ(frames(head + list), 0u);
  EXPECT_EQ(frames(head + list + Chunk("bext", 5, "12345") + '\0'), 0u);
}

TEST(WavDecoder, HostileChunksAreRefusedOrPlayedAndNeverHang) {
  MediaFiles files;
  const std::string whole = WavBytes({.RiffSize = 4036, .DataSize = 4000}, std::string(4000, '\1'));
  const std::string head = whole.substr(0, 12);
  const std::string format = whole.substr(20, 16);
  const std::string fmt = Chunk("fmt ", 16, format);
  const std::string data = Chunk("data", 4000, std::string(4000, '\1'));
  const std::uint32_t huge = 0xFFFFFFFFu;
  const std::string hostile[] = {
      head + Chunk("LIST", huge, "INFO") + fmt + data,
      head + fmt + Chunk("LIST", huge, "INFO") + data,
      head + fmt + Chunk("LIST", 4, "INFO") + Chunk("LIST", huge - 7, "INFO") + data,
      head + Chunk("fmt ", 0, "") + data,
      head + Chunk("fmt ", 0, "") + fmt + data,
      head + Chunk("fmt ", huge, format) + data,
      head + Chunk("fmt ", huge - 15, format) + data,
      head + data + fmt,
      head + data,
      head + fmt + Chunk("\0\0\0\0", 0, "") + data,
      head + fmt + Chunk("fact", huge, "") + data,
      head + fmt + fmt + data + data,
  };
  for (const std::string& bytes : hostile) {
    const auto begin = std::chrono::steady_clock::now();
    const std::string path = files.Write("hostile.wav", bytes);
    const auto decoder = OpenWav(path);
    if (decoder) {
      EXPECT_LE(decoder->Seconds(), 0.1);
      EXPECT_LE(Play(path).size() / 2, bytes.size() / 4);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
  }
  // Harmless extra chunks do not keep the sound from being heard.
  const std::string list = Chunk("LIST", 4, "INFO");
  EXPECT_EQ(Play(files.Write("list.wav", head + list + fmt + list + data)).size() / 2, 1000u);
}

TEST(WavDecoder, ADamagedFileNeverHangsOrCrashes) {
  MediaFiles files;
  const std::string bytes = MediaFiles::Read(files.Wav("tone.wav", 0.5));
  for (std::uint32_t seed = 1; seed <= 300; ++seed) {
    std::string damaged = bytes;
    const std::string noise = Noise(16, seed);
    for (std::size_t i = 0; i + 1 < noise.size(); i += 2)
      damaged[std::uint8_t(noise[i]) % 60] = noise[i + 1];
    EXPECT_LE(Play(files.Write("damaged.wav", damaged)).size() / 2, 44100u * 600) << seed;
  }
}

}  // namespace
}  // namespace marlex
