#include "sound/sound_server.h"

#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <utility>

#include "places.h"
#include "sound/wait.h"

namespace marlex::stage {
namespace {

std::vector<std::string> Modules(const SoundCards& cards) {
  const std::string rate = " rate=" + std::to_string(SoundServer::kSampleRate);
  const std::string channels = " channels=" + std::to_string(SoundServer::kChannels);
  std::vector<std::string> modules;
  for (const std::string& output : cards.Outputs) {
    modules.push_back("module-null-sink sink_name=" + output + rate + channels +
                      " sink_properties=device.description=" + output);
  }
  if (cards.Microphone) {
    modules.push_back("module-null-sink sink_name=mouth" + rate);
    modules.push_back("module-remap-source source_name=microphone master=mouth.monitor");
  }
  return modules;
}

}  // namespace

SoundServer::SoundServer(const std::string& folder, const SoundCards& cards) : Folder(folder) {
  WriteAlsaConfiguration();
  Start(cards);
}

Environment SoundServer::Variables() const {
  return {{"PULSE_SERVER", "unix:" + Folder + "/native"},
          {"PULSE_COOKIE", Folder + "/cookie"},
          {"PULSE_RUNTIME_PATH", Folder},
          {"PULSE_STATE_PATH", Folder},
          {"XDG_RUNTIME_DIR", Folder},
          {"ALSA_CONFIG_PATH", Folder + "/asound.conf"},
          {"PIPEWIRE_REMOTE", Folder + "/none"},
          {"DBUS_SESSION_BUS_ADDRESS", "disabled:"}};
}

void SoundServer::Kill() {
  if (!Server) return;
  Server->Signal(SIGKILL);
  Server.reset();
}

void SoundServer::Start(const SoundCards& cards) {
  constexpr double kStartLimitSeconds = 20;
  Kill();
  unlink((Folder + "/native").c_str());
  Command command;
  command.Arguments = {MARLEX_SOURCE_DIR "/tests/sound/private_server", Folder};
  for (const std::string& module : Modules(cards)) command.Arguments.push_back(module);
  command.Variables = Variables();
  command.Variables["HOME"] = Folder;
  command.Variables.erase("PULSE_SERVER");
  command.LogFile = Folder + "/sound.log";
  command.GoesFirst = true;
  Server = std::make_unique<ChildProcess>(command);
  bool isUp = WaitUntil([this] { return !Server->IsRunning() || IsUp(); }, kStartLimitSeconds);
  if (!isUp || !Server->IsRunning()) {
    throw std::runtime_error("The sound server did not start: " + Folder + "/sound.log");
  }
  Control({"set-default-sink", cards.Outputs.front()});
  if (cards.Microphone) Control({"set-default-source", "microphone"});
}

void SoundServer::Control(std::vector<std::string> arguments) const {
  Command command;
  command.Arguments = std::move(arguments);
  command.Arguments.insert(command.Arguments.begin(), "pactl");
  command.Variables = Variables();
  command.LogFile = Folder + "/sound.log";
  // One kind of server accepts connections before everything inside it is ready.
  constexpr double kLimitSeconds = 20;
  if (!WaitUntil([&] { return Run(command) == 0; }, kLimitSeconds))
    throw std::runtime_error("The sound server does not obey: " + Folder + "/sound.log");
}

std::unique_ptr<ChildProcess> SoundServer::Record(const std::string& output, int descriptor) const {
  Command command;
  command.Arguments = {"parec",
                       "--raw",
                       "--device=" + output + ".monitor",
                       "--format=s16le",
                       "--rate=" + std::to_string(kSampleRate),
                       "--channels=" + std::to_string(kChannels),
                       "--latency-msec=10"};
  command.Variables = Variables();
  command.LogFile = Folder + "/record.log";
  command.GoesFirst = true;
  command.Output = descriptor;
  auto recorder = std::make_unique<ChildProcess>(command);
  close(descriptor);
  return recorder;
}

std::unique_ptr<ChildProcess> SoundServer::Speak(const std::string& file) const {
  Command command;
  command.Arguments = {"paplay", "--device=mouth", "--latency-msec=50", file};
  command.Variables = Variables();
  command.LogFile = Folder + "/speak.log";
  command.GoesFirst = true;
  return std::make_unique<ChildProcess>(command);
}

void SoundServer::WriteAlsaConfiguration() const {
  std::ofstream file(Folder + "/asound.conf");
  file << "</usr/share/alsa/alsa.conf>\n"
          "pcm.!default { type pulse }\n"
          "ctl.!default { type pulse }\n";
}

bool SoundServer::IsUp() const { return access((Folder + "/native").c_str(), F_OK) == 0; }

}  // namespace marlex::stage
