#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "places.h"
#include "sound/wait.h"
#include "system/stage/installation.h"
#include "system/stage/signals.h"
#include "system/stage/stage.h"
#include "system/stage/wav_file.h"

namespace marlex {

/// Peak of every tone that the tests generate, and its level in a recording at full volume.
constexpr double kTonePeak = 0.5;
constexpr double kToneDb = -9.03;

/// Anything below this counts as inaudible.
constexpr double kSilentDb = -70;

/// Tones of the songs and messages of most tests.
constexpr double kFirstSong = 500;
constexpr double kSecondSong = 900;
constexpr double kMessage = 1500;

/// Tone of the person speaking into the microphone.
constexpr double kVoice = 3100;

/// A tone below this is absent, whatever else sounds.
constexpr double kNothingDb = -60;

/// A tone above this is audible. Anything quieter may be the edge of another tone that starts or
/// ends.
constexpr double kHeardDb = -25;

inline stage::InstallationFiles TwoSongs(double firstSeconds) {
  stage::InstallationFiles files;
  files.Songs = {{"First", stage::Tone(kFirstSong, firstSeconds, kTonePeak)},
                 {"Second", stage::Tone(kSecondSong, 40, kTonePeak)}};
  files.Messages = {{"Long", stage::Tone(kMessage, 6, kTonePeak)},
                    {"Short", stage::Tone(kMessage, 1, kTonePeak)}};
  return files;
}

inline stage::StageOptions RealDeskOptions() {
  stage::StageOptions options;
  options.Program = MARLEX_BINARY_DIR "/marlex";
  options.Helpers = MARLEX_BINARY_DIR "/helpers";
  return options;
}

inline stage::StageOptions WithMicrophone() {
  stage::StageOptions options = RealDeskOptions();
  options.Cards.Microphone = true;
  return options;
}

/// The real program on the operator's desk. When a test fails, the program's output is printed.
class RealDesk : public stage::Stage {
 public:
  explicit RealDesk(const stage::StageOptions& options = RealDeskOptions()) : Stage(options) {}
  explicit RealDesk(const stage::InstallationFiles& files,
                    const stage::StageOptions& options = RealDeskOptions())
      : Stage(options) {
    stage::LayOut(Installation, files);
  }
  ~RealDesk() {
    if (!testing::UnitTest::GetInstance()->Failed()) return;
    const char* recording = MARLEX_BINARY_DIR "/failed.wav";
    if (Card && Card->Take().Write(recording)) GTEST_LOG_(INFO) << "The card played: " << recording;
    GTEST_LOG_(INFO) << "The program wrote:\n" << ProgramLog();
    for (const stage::LineByte& byte : Bytes()) {
      GTEST_LOG_(INFO) << Clock->TimeAt(byte.Time) << " <- " << byte.Value;
    }
  }

  /// Waits until the card plays louder than silence.
  bool AwaitSound(double limitSeconds = 30) {
    return stage::WaitUntil([this] { return Card->LevelNowDb(0.05) > kSilentDb; }, limitSeconds);
  }
  bool AwaitSilence(double limitSeconds = 30) {
    return stage::WaitUntil([this] { return Card->LevelNowDb(0.2) < kSilentDb; }, limitSeconds);
  }

  /// Level of a tone over the most recent stretch of time, in decibels.
  double ToneNowDb(double frequency, double seconds = 0.1) const {
    const stage::Recording heard = Card->Take();
    return heard.ToneDb(frequency, heard.EndTime() - seconds, heard.EndTime());
  }
  bool IsLoud(double frequency) const { return ToneNowDb(frequency) > kHeardDb; }
  bool AwaitTone(double frequency, double limitSeconds = 30) const {
    return stage::WaitUntil([&] { return IsLoud(frequency); }, limitSeconds);
  }

  /// Waits while the recording goes on for that long.
  void RecordFor(double seconds) {
    double end = stage::Now() + seconds;
    stage::WaitUntil([this, end] { return Card->Take().EndTime() >= end; }, seconds + 30);
  }

  std::vector<stage::LineByte> Bytes() const {
    return Line ? Line->Received() : std::vector<stage::LineByte>();
  }
  std::vector<int> ByteValues() const {
    std::vector<int> values;
    for (const stage::LineByte& byte : Bytes()) values.push_back(byte.Value);
    return values;
  }
  bool AwaitBytes(size_t count, double limitSeconds = 30) {
    return stage::WaitUntil([&] { return Bytes().size() >= count; }, limitSeconds);
  }

  bool AwaitLastByte(int value, double limitSeconds = 30) {
    const auto isLast = [&] {
      const std::vector<int> values = ByteValues();
      return !values.empty() && values.back() == value;
    };
    return stage::WaitUntil(isLast, limitSeconds);
  }

  /// A message bus for the program and for what is started beside it.
  void StartBus() {
    const std::string bus = "unix:path=" + Folder + "/bus";
    Bus = StartBeside("bus",
                      {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + bus});
    stage::WaitUntil([this] { return std::filesystem::exists(Folder + "/bus"); }, 20);
    MoreVariables["DBUS_SESSION_BUS_ADDRESS"] = bus;
  }

  /// Another program of the desktop, with its output in NAME.log.
  std::unique_ptr<stage::ChildProcess> StartBeside(const std::string& name,
                                                   std::vector<std::string> words) const {
    stage::Command command;
    command.Arguments = std::move(words);
    command.Variables = MoreVariables;
    command.LogFile = Folder + "/" + name + ".log";
    return std::make_unique<stage::ChildProcess>(command);
  }

  /// A window manager, which gives each new window the focus.
  std::unique_ptr<stage::ChildProcess> StartWindowManager() const {
    stage::Command command;
    command.Arguments = {"evilwm", "-fn", "fixed"};
    command.Variables = Display->Variables();
    command.Variables["HOME"] = Folder;
    command.LogFile = Folder + "/manager.log";
    return std::make_unique<stage::ChildProcess>(command);
  }

  /// Types letters, digits and points.
  void Type(const std::string& text) const {
    for (const char letter : text)
      Display->Key(letter == '.' ? "period" : letter == '/' ? "slash" : std::string(1, letter));
  }

  /// From now on somebody speaks into the microphone, for a hundred seconds.
  void Speak() {
    const std::string speech = Folder + "/speech.wav";
    stage::WriteWavFile(speech, stage::Tone(kVoice, 100, kTonePeak));
    Speaker = Server->Speak(speech);
  }

  /// The output "card" is pulled out of the sound server, and is plugged in again.
  void PullCard() const {
    std::istringstream modules(Server->Control("list short modules"));
    for (std::string module; std::getline(modules, module);) {
      if (module.find("sink_name=card") != std::string::npos)
        Server->Control("unload-module " + module.substr(0, module.find('\t')));
    }
  }
  void PlugCard() const { Server->Control("load-module module-null-sink sink_name=card"); }

  std::string NewestFault() const { return Window->Read("frmMain.paneNewestFault", "text"); }

  /// Waits until the newest fault in sight begins so.
  bool AwaitFault(const std::string& text, double limitSeconds = 30) const {
    return stage::WaitUntil([&] { return NewestFault().starts_with(text); }, limitSeconds);
  }

  /// Whether the log has, or soon gets, a line that begins so.
  bool Records(const std::string& text) const {
    const auto begins = [&](const stage::LogLine& line) { return line.Text.starts_with(text); };
    return stage::WaitUntil([&] { return std::ranges::any_of(Log->Lines(), begins); }, 5);
  }

  /// Times at which a property took a value, oldest first.
  std::vector<double> TimesOf(const std::string& object, const std::string& property,
                              const std::string& value) const {
    std::vector<double> times;
    for (const stage::WindowEvent& event : Window->Events()) {
      bool isIt = event.Object == object && event.Property == property && event.Value == value;
      if (isIt) times.push_back(event.Time);
    }
    return times;
  }

  /// Waits until a property takes a value for the nth time, counted from 1.
  bool AwaitTime(const std::string& object, const std::string& property, const std::string& value,
                 size_t n = 1, double limitSeconds = 60) {
    return stage::WaitUntil([&] { return TimesOf(object, property, value).size() >= n; },
                            limitSeconds);
  }

 private:
  std::unique_ptr<stage::ChildProcess> Speaker;
  std::unique_ptr<stage::ChildProcess> Bus;
};

}  // namespace marlex
