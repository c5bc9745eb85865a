#include "players_bench.h"

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "process_cost.h"
#include "real_program.h"
#include "sound/wait.h"
#include "system/stage/installation.h"
#include "windows/frm_main.h"

namespace marlex::bench {
namespace {

namespace fs = std::filesystem;
using stage::ChildProcess;
using stage::Command;

constexpr int kRepetitions = 3;
constexpr double kMeasuredSeconds = 10;
constexpr double kSettleSeconds = 1.5;
constexpr double kFallAsleepSeconds = 5;  // longer than an unused output stays awake
constexpr double kWindowLimitSeconds = 30;
constexpr double kSoundLimitSeconds = 20;
constexpr double kSilentDb = -70;

Command Starting(std::vector<std::string> arguments) {
  Command command;
  command.Arguments = std::move(arguments);
  return command;
}

/// What one player cost, one value for each repetition.
struct Costs {
  std::string Player;
  std::string Failure = "";
  std::vector<double> ProcessorMs = {};  // of ten seconds
  std::vector<double> ServerMs = {};     // of the sound server, meanwhile
  std::vector<double> WakeUps = {};      // per second
  std::vector<double> ResidentMiB = {};

  Figure Of(const std::string& what, const std::vector<double>& values) const {
    return {Player + ": " + what, Failure.empty() ? values : std::vector<double>{}, std::nullopt,
            Failure};
  }
};

/// The place where all of them play. They run as an operator would start them, without the probe
/// and the shifted clock of the tests.
class Place {
 public:
  Place() : Room(ProgramOptions()) {
    Room.Card.reset();
    LetIdleCardsSleep();
    MakeSong();
  }

  /// The program's installation, in which music plays from the start or never.
  void LayOut(bool hasMusic) {
    stage::InstallationFiles files;
    files.Songs = {{"Song", stage::Tone(440, 0.1)}};
    files.Messages = {{"Message", stage::Tone(700, 0.5)}};
    files.Sequences = {{"Midnight", "Message", "00", "00"}};
    files.Autostart = hasMusic;
    stage::LayOut(Room.Installation, files);
    fs::copy_file(Song(), Room.File("Music/Song.mp3"), fs::copy_options::overwrite_existing);
  }

  std::string Song() const { return Room.Folder + "/song.mp3"; }
  Command Marlex() const { return Starting({Room.File("marlex")}); }

  void Measure(Costs& costs, Command command, bool isMusic) {
    if (!costs.Failure.empty()) return;
    try {
      Take(costs, std::move(command), isMusic);
    } catch (const std::exception& failure) {
      costs.Failure = failure.what();
    }
  }

 private:
  /// Does what every desktop's sound server does, only sooner.
  void LetIdleCardsSleep() {
    if (Room.Server->Control("load-module module-suspend-on-idle timeout=1").empty())
      throw std::runtime_error("The sound server lacks a module.");
  }

  /// Two channels of noise, which gives a decoder all the work that its bit rate allows.
  void MakeSong() {
    const std::string raw = Room.Folder + "/song.wav";
    const bool isMade = stage::Run(Starting({"sox", "-n", "-r", "44100", "-c", "2", "-b", "16", raw,
                                             "synth", "60", "pinknoise", "gain", "-12"})) == 0 &&
                        stage::Run(Starting({"lame", "--quiet", "-b", "192", raw, Song()})) == 0;
    if (!isMade) throw std::runtime_error("Cannot make the song.");
    fs::remove(raw);
  }

  void Take(Costs& costs, Command command, bool isMusic) {
    command.Variables = {{"HOME", Room.Folder}, {"LC_ALL", "C.UTF-8"}, {"NO_AT_BRIDGE", "1"}};
    command.Variables.merge(Room.Display->Variables());
    command.Variables.merge(Room.Server->Variables());
    command.Directory = Room.Folder;
    AwaitOthersEnd();
    ChildProcess player(command);
    if (isMusic) {
      ExpectSound("it did not play");
    } else {
      ExpectMainWindow();
    }
    Sleep(isMusic ? kSettleSeconds : kFallAsleepSeconds);
    const ProcessUse before = UseOf(player.Pid());
    const ProcessUse serverBefore = UseOf(Room.Server->Pid());
    const double start = stage::Now();
    Sleep(kMeasuredSeconds);
    const ProcessUse after = UseOf(player.Pid());
    const ProcessUse serverAfter = UseOf(Room.Server->Pid());
    const double seconds = stage::Now() - start;
    if (isMusic) ExpectSound("it did not play on");
    if (!player.IsRunning()) throw std::runtime_error("it ended by itself");
    const double share = kMeasuredSeconds / seconds;
    costs.ProcessorMs.push_back((after.ProcessorMs - before.ProcessorMs) * share);
    costs.ServerMs.push_back((serverAfter.ProcessorMs - serverBefore.ProcessorMs) * share);
    costs.WakeUps.push_back((after.WakeUps - before.WakeUps) / seconds);
    costs.ResidentMiB.push_back(after.ResidentMiB);
  }

  /// The recorder requests a short latency from the server, which would cause wake-ups in all
  /// players. It therefore listens only before and after a measurement.
  void ExpectSound(const char* otherwise) {
    constexpr double kHeardSeconds = 0.1;
    Room.StartRecording();
    const bool isHeard = stage::WaitUntil(
        [this] { return Room.Card->LevelNowDb(kHeardSeconds) > kSilentDb; }, kSoundLimitSeconds);
    Room.Card.reset();
    if (!isHeard) throw std::runtime_error(otherwise);
  }

  void ExpectMainWindow() {
    Command search =
        Starting({"xdotool", "search", "--onlyvisible", "--name", "^" + Caption() + "$"});
    search.Variables = Room.Display->Variables();
    const bool isShown =
        stage::WaitUntil([&search] { return stage::Run(search) == 0; }, kWindowLimitSeconds);
    if (!isShown) throw std::runtime_error("its main window did not come");
  }

  static std::string Caption() { return FrmMain::kCaption; }

  stage::Stage Room;
};

/// The first is the program, the second the console player, whose cost may serve as the program's
/// budget.
void Compare(Report& report, const std::vector<Costs>& all, const std::string& what,
             std::vector<double> Costs::*values, bool hasBudget = false) {
  std::vector<Figure> figures;
  for (const Costs& costs : all) figures.push_back(costs.Of(what, costs.*values));
  if (hasBudget && !figures[1].Values.empty()) figures[0].Budget = Median(figures[1].Values);
  report.Compare(figures.front(), {figures.begin() + 1, figures.end()});
}

}  // namespace

void MeasurePlayers(Report& report) {
  Place place;
  const Command console = Starting({"mpg123", "-q", "-o", "pulse", place.Song()});
  const Command desktop = Starting({"audacious", "-Q", "-m", place.Song()});
  std::vector<Costs> music{{.Player = "marlex"}, {.Player = "mpg123"}, {.Player = "audacious"}};
  Costs waiting{.Player = "marlex"};
  for (int i = 0; i < kRepetitions; ++i) {
    place.LayOut(true);
    place.Measure(music[0], place.Marlex(), true);
    place.Measure(music[1], console, true);
    place.Measure(music[2], desktop, true);
    place.LayOut(false);
    place.Measure(waiting, place.Marlex(), false);
  }
  report.Section("Ten seconds of music, players in turn");
  Compare(report, music, "processor time [ms]", &Costs::ProcessorMs, true);
  Compare(report, music, "the sound server's meanwhile [ms]", &Costs::ServerMs);
  Compare(report, music, "wake-ups a second", &Costs::WakeUps);
  Compare(report, music, "resident memory [MiB]", &Costs::ResidentMiB);
  report.Section("Ten seconds of waiting, main window shown");
  report.Add(waiting.Of("processor time [ms]", waiting.ProcessorMs));
  report.Add(waiting.Of("the sound server's meanwhile [ms]", waiting.ServerMs));
  report.Add(waiting.Of("wake-ups a second", waiting.WakeUps));
  report.Add(waiting.Of("resident memory [MiB]", waiting.ResidentMiB));
}

}  // namespace marlex::bench
