#include "stage.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "sound/wait.h"

namespace marlex::stage {
namespace {

namespace fs = std::filesystem;

constexpr double kStartLimitSeconds = 60;
constexpr int kStandInWidth = 640;  // on the screen, beside the program

std::string MakeFolder() {
  std::string name = (fs::temp_directory_path() / "marlex-stage-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("Cannot make a folder in " + name);
  return name;
}

bool IsMedia(const fs::path& file) {
  return file.extension() == ".mp3" || file.extension() == ".wav";
}

/// An environment in which no sound server and no card can be found, whatever the machine has.
Environment NoSound() {
  return {{"PULSE_SERVER", "unix:/nonexistent"},
          {"PIPEWIRE_REMOTE", "/nonexistent"},
          {"ALSA_CONFIG_PATH", "/dev/null"}};
}

std::string ReadWhole(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

}  // namespace

Stage::Stage(const StageOptions& options)
    : Folder(MakeFolder()),
      Installation(options.Installation),
      MoreVariables(options.Variables),
      Helpers(options.Helpers),
      FirstOutput(options.Cards.Outputs.front()),
      StandInProgram(options.StandIn) {
  if (Installation.empty()) Installation = Folder + "/installation";
  fs::create_directories(Installation);
  fs::remove(File("marlex"));  // the old one may still be running
  fs::copy_file(options.Program, File("marlex"));
  const int width = VirtualDisplay::kWidth + (StandInProgram.empty() ? 0 : kStandInWidth);
  Display = std::make_unique<VirtualDisplay>(Folder, width);
  if (options.HasSound) {
    Server = std::make_unique<SoundServer>(Folder, options.Cards);
    StartRecording();
  }
  if (options.HasAmplifier && StandInProgram.empty())
    Line = std::make_unique<Amplifier>(File("com1"));
  Clock = std::make_unique<ShiftedClock>(Folder, Helpers + "/libmarlex_preload.so");
  Log = std::make_unique<LogService>(Folder);
  Window = std::make_unique<ProbeLink>(Folder, Helpers + "/plugins");
}

Stage::~Stage() {
  Program.reset();
  Window.reset();
  StandIn.reset();
  StandInWindow.reset();
  Line.reset();
  Card.reset();
  Server.reset();
  Display.reset();
  std::error_code ignored;
  fs::remove_all(Folder, ignored);
}

std::string Stage::ReadFile(const std::string& name) const { return ReadWhole(File(name)); }

std::string Stage::ProgramLog() const { return ReadWhole(Folder + "/program.log"); }

void Stage::WriteFile(const std::string& name, const std::string& content) const {
  fs::create_directories(fs::path(File(name)).parent_path());
  std::ofstream stream(File(name), std::ios::binary);
  stream << content;
}

void Stage::Start(const std::string& localTime) {
  if (!localTime.empty()) Clock->Set(localTime);
  if (!StandInProgram.empty() && !StandIn) StartStandIn();
  Program = std::make_unique<ChildProcess>(StartCommand({File("marlex")}, *Window));
  if (!Window->AwaitProgram(kStartLimitSeconds)) {
    throw std::runtime_error("The program did not come up:\n" + ProgramLog());
  }
}

void Stage::StartStandIn() {
  fs::create_directories(Folder + "/stand-in");
  StandInWindow = std::make_unique<ProbeLink>(Folder + "/stand-in", Helpers + "/plugins");
  Command command = StartCommand({StandInProgram, Installation}, *StandInWindow);
  command.LogFile = Folder + "/stand-in.log";
  StandIn = std::make_unique<ChildProcess>(command);
  const auto isShown = [this] { return StandInWindow->Geometry("frmAmplifier").has_value(); };
  if (!StandInWindow->AwaitProgram(kStartLimitSeconds) || !WaitUntil(isShown, kStartLimitSeconds))
    throw std::runtime_error("The amplifier did not come up:\n" + ReadWhole(command.LogFile));
  Display->Place("Marlex amplifier", VirtualDisplay::kWidth, 0);
}

std::unique_ptr<ChildProcess> Stage::StartSecond(ProbeLink& link) const {
  auto second = std::make_unique<ChildProcess>(StartCommand({File("marlex")}, link));
  link.AwaitProgram(kStartLimitSeconds);
  return second;
}

std::unique_ptr<ProbeLink> Stage::MakeSecondLink() const {
  fs::create_directories(Folder + "/second");
  return std::make_unique<ProbeLink>(Folder + "/second", Helpers + "/plugins");
}

bool Stage::AwaitText(const std::string& object, const std::string& text, double limitSeconds) {
  return Await(object, "text", text, limitSeconds);
}

bool Stage::Await(const std::string& object, const std::string& property, const std::string& value,
                  double limitSeconds) {
  return WaitUntil([&] { return Window->Read(object, property) == value; }, limitSeconds);
}

bool Stage::Click(const std::string& object) { return Click(object, *Window); }

bool Stage::Click(const std::string& object, ProbeLink& link) {
  const std::optional<ScreenArea> area = AwaitPlace(object, link);
  if (area) Display->Click(area->X + area->Width / 2, area->Y + area->Height / 2);
  return area.has_value();
}

bool Stage::DoubleClick(const std::string& object) {
  const std::optional<ScreenArea> area = AwaitPlace(object, *Window);
  if (area) Display->DoubleClick(area->X + area->Width / 2, area->Y + area->Height / 2);
  return area.has_value();
}

bool Stage::Press(const std::string& object) {
  const std::optional<ScreenArea> area = AwaitPlace(object, *Window);
  if (area) Display->Press(area->X + area->Width / 2, area->Y + area->Height / 2);
  return area.has_value();
}

std::optional<ScreenArea> Stage::AwaitPlace(const std::string& object, ProbeLink& link) const {
  constexpr double kSeenLimitSeconds = 30;
  constexpr double kStillSeconds = 0.1;
  std::optional<ScreenArea> area;
  double since = Now();
  const auto isStill = [&] {
    const std::optional<ScreenArea> now = link.Geometry(object);
    if (now != area) since = Now();
    area = now;
    return area && Now() - since >= kStillSeconds;
  };
  WaitUntil(isStill, kSeenLimitSeconds);
  return area;
}

void Stage::StartRecording() {
  Card.reset();
  Card = std::make_unique<Recorder>(*Server, FirstOutput);
}

std::vector<std::string> Stage::OpenMedia() const {
  std::vector<std::string> names;
  std::error_code error;
  fs::path descriptors = "/proc/" + std::to_string(Program->Pid()) + "/fd";
  for (const auto& entry : fs::directory_iterator(descriptors, error)) {
    fs::path file = fs::read_symlink(entry.path(), error);
    if (!error && IsMedia(file)) names.push_back(file.filename().string());
  }
  return names;
}

Environment Stage::Surroundings(const ProbeLink& link) const {
  Environment all = MoreVariables;
  all.merge(Environment{{"HOME", Folder}, {"LC_ALL", "C.UTF-8"}, {"NO_AT_BRIDGE", "1"}});
  all.merge(Display->Variables());
  all.merge(Server ? Server->Variables() : NoSound());
  all.merge(Clock->Variables());
  all.merge(Log->Variables());
  all.merge(link.Variables());
  return all;
}

Command Stage::StartCommand(const std::vector<std::string>& arguments,
                            const ProbeLink& link) const {
  Command command;
  command.Arguments = arguments;
  command.Variables = Surroundings(link);
  command.Directory = Folder;
  command.LogFile = Folder + "/program.log";
  command.GoesFirst = true;  // on the operator's desk nothing else competes with it
  return command;
}

}  // namespace marlex::stage
