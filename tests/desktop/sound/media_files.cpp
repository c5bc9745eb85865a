#include "desktop/sound/media_files.h"

#include <sndfile.h>
#include <stdlib.h>

#include <cmath>
#include <fstream>
#include <numbers>
#include <random>
#include <sstream>
#include <stdexcept>

namespace marlex {

MediaFiles::MediaFiles() {
  std::string pattern = (std::filesystem::temp_directory_path() / "marlex-sound-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no directory for sound files");
  Directory = pattern;
}

MediaFiles::~MediaFiles() {
  std::error_code ignored;
  std::filesystem::remove_all(Directory, ignored);
}

std::string MediaFiles::Wav(const std::string& name, double seconds, double amplitude, int rate,
                            double frequency) {
  SF_INFO info = {};
  info.samplerate = rate;
  info.channels = 2;
  info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  std::string path = Path(name);
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  if (!file) throw std::runtime_error("cannot write " + path);
  std::vector<float> samples;
  for (int i = 0; i < int(std::lround(seconds * rate)); ++i) {
    const float sample = float(amplitude * std::sin(2 * std::numbers::pi * frequency * i / rate));
    samples.insert(samples.end(), {sample, sample});
  }
  sf_writef_float(file, samples.data(), sf_count_t(samples.size() / 2));
  sf_close(file);
  return path;
}

std::string MediaFiles::Mp3(const std::string& name, double seconds, double amplitude, int rate,
                            const std::string& options, double frequency) {
  const std::string source = Wav(name + ".source", seconds, amplitude, rate, frequency);
  const std::string command = "lame --quiet " + options + " '" + source + "' '" + Path(name) + "'";
  if (system(command.c_str()) != 0) throw std::runtime_error("lame is needed for this test");
  std::filesystem::remove(source);
  return Path(name);
}

std::string MediaFiles::Write(const std::string& name, const std::string& bytes) {
  std::ofstream(Path(name), std::ios::binary) << bytes;
  return Path(name);
}

std::string MediaFiles::Read(const std::string& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

std::string Noise(std::size_t size, std::uint32_t seed) {
  std::mt19937 random(seed);
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = char(random());
  return bytes;
}

std::string WavBytes(const WavHeader& header, const std::string& data) {
  std::string bytes;
  const auto put = [&bytes](std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += char(value >> (8 * i));
  };
  bytes += "RIFF";
  put(header.RiffSize, 4);
  bytes += "WAVEfmt ";
  put(16, 4);
  put(header.Format, 2);
  put(header.Channels, 2);
  put(header.Rate, 4);
  put(header.Rate * header.BlockAlign, 4);
  put(header.BlockAlign, 2);
  put(header.Bits, 2);
  bytes += "data";
  put(header.DataSize, 4);
  return bytes + data;
}

}  // namespace marlex
