#include "sound/sound_server.h"

#include <unistd.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "places.h"
#include "sound/wait.h"

namespace marlex::stage {
namespace {

constexpr double kStartLimitSeconds = 20;

std::string TextOf(const std::string& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string Description(std::string output) {
  output[0] = char(std::toupper(output[0]));
  return output;
}

std::vector<std::string> Modules(const SoundCards& cards) {
  const std::string rate = cards.Rate > 0 ? " rate=" + std::to_string(cards.Rate) : "";
  const std::string channels = " channels=" + std::to_string(SoundServer::kChannels);
  std::vector<std::string> modules;
  for (const std::string& output : cards.Outputs) {
    modules.push_back("module-null-sink sink_name=" + output + rate + channels +
                      " sink_properties=device.description=" + Description(output));
  }
  if (cards.Microphone) {
    modules.push_back("module-null-sink sink_name=mouth" + rate);
    modules.push_back("module-remap-source source_name=microphone master=mouth.monitor");
  }
  return modules;
}

}  // namespace

SoundServer::SoundServer(const std::string& folder, const SoundCards& cards)
    : Folder(folder), OnPipeWire(cards.OnPipeWire) {
  WriteAlsaConfiguration();
  Start(cards);
}

Environment SoundServer::Variables() const {
  return {{"PULSE_SERVER", "unix:" + Folder + (OnPipeWire ? "/clients" : "/native")},
          {"PULSE_COOKIE", Folder + "/cookie"},
          {"PULSE_RUNTIME_PATH", Folder},
          {"PULSE_STATE_PATH", Folder},
          {"XDG_RUNTIME_DIR", Folder},
          {"ALSA_CONFIG_PATH", Folder + "/asound.conf"},
          {"PIPEWIRE_REMOTE", Folder + "/none"},
          {"DBUS_SESSION_BUS_ADDRESS", "disabled:"}};
}

void SoundServer::Kill() {
  for (auto* process : {&Interface, &Server}) {
    if (*process) (*process)->Signal(SIGKILL);
    process->reset();
  }
}

void SoundServer::KillInterface() {
  Interface->Signal(SIGKILL);
  Interface.reset();
}

void SoundServer::StartInterface() {
  const std::string socket = Folder + "/clients";
  std::filesystem::remove(socket);  // of the killed one
  Command command = Prepare({"pipewire", "-c", socket + ".conf"}, "interface");
  command.Variables["PIPEWIRE_RUNTIME_DIR"] = Folder;
  command.Variables["PIPEWIRE_REMOTE"] = "pipewire-0";
  Interface = std::make_unique<ChildProcess>(command);
  const auto isUp = [&] { return access(socket.c_str(), F_OK) == 0; };
  if (!WaitUntil(isUp, kStartLimitSeconds))
    throw std::runtime_error("PipeWire has no interface:\n" + TextOf(command.LogFile));
}

void SoundServer::Start(const SoundCards& cards) {
  Kill();
  Command command = Prepare({MARLEX_SOURCE_DIR "/tests/sound/private_server", Folder}, "sound");
  for (const std::string& module : Modules(cards)) command.Arguments.push_back(module);
  command.Variables["HOME"] = Folder;
  command.Variables.erase("PULSE_SERVER");
  if (OnPipeWire) command.Variables["MARLEX_SOUND_SERVER"] = "pipewire";
  Server = std::make_unique<ChildProcess>(command);
  const auto isOver = [&] { return !Server->IsRunning() || IsReady(cards); };
  if (!WaitUntil(isOver, kStartLimitSeconds) || !Server->IsRunning())
    throw std::runtime_error("The sound server did not start:\n" + TextOf(command.LogFile));
  if (OnPipeWire) StartInterface();
}

/// One kind of server answers before everything inside it is ready.
bool SoundServer::IsReady(const SoundCards& cards) const {
  if (access((Folder + "/native").c_str(), F_OK) != 0) return false;
  const auto isDefault = [this](const std::string& kind, const std::string& name) {
    Control("set-default-" + kind + " " + name);
    return Control("get-default-" + kind) == name + "\n";
  };
  return isDefault("sink", cards.Outputs.front()) &&
         (!cards.Microphone || isDefault("source", "microphone"));
}

std::string SoundServer::Control(const std::string& words) const {
  Command command = Prepare({"pactl"}, "sound");
  command.IsRealTime = false;
  command.Variables["LC_ALL"] = "C";
  std::istringstream rest(words);
  for (std::string word; rest >> word;) command.Arguments.push_back(word);
  return OutputOf(command);
}

std::unique_ptr<ChildProcess> SoundServer::Record(const std::string& output, int descriptor) const {
  Command command = Prepare({"parec", "--raw", "--device=" + output + ".monitor", "--format=s16le",
                             "--rate=" + std::to_string(kSampleRate),
                             "--channels=" + std::to_string(kChannels), "--latency-msec=10"},
                            "record");
  command.Output = descriptor;
  auto recorder = std::make_unique<ChildProcess>(command);
  close(descriptor);
  return recorder;
}

std::unique_ptr<ChildProcess> SoundServer::Speak(const std::string& file) const {
  return std::make_unique<ChildProcess>(
      Prepare({"paplay", "--device=mouth", "--latency-msec=50", file}, "speak"));
}

Command SoundServer::Prepare(std::vector<std::string> arguments, const std::string& log) const {
  Command command;
  command.Arguments = std::move(arguments);
  command.Variables = Variables();
  command.Variables["PULSE_SERVER"] = "unix:" + Folder + "/native";
  command.LogFile = Folder + "/" + log + ".log";
  command.IsRealTime = true;  // a busy machine must not spoil the sound
  return command;
}

void SoundServer::WriteAlsaConfiguration() const {
  std::ofstream file(Folder + "/asound.conf");
  file << "</usr/share/alsa/alsa.conf>\n"
          "pcm.!default { type pulse }\n"
          "ctl.!default { type pulse }\n";
}

}  // namespace marlex::stage
