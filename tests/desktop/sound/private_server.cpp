#include "desktop/sound/private_server.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <stdexcept>

#include "sound/wait.h"

namespace marlex {

PrivateServer::PrivateServer() : PrivateServer({{"desk", "other"}, true, 0}) {
  IsPrompt = true;
  Listen();
  AwaitPromptness();
}

PrivateServer::PrivateServer(const stage::SoundCards& cards) : Cards(cards) {
  setenv("HOME", Folder.Path().c_str(), 1);
  setenv("XDG_RUNTIME_DIR", Folder.Path().c_str(), 1);
  setenv("PULSE_SERVER", ("unix:" + Folder.Path("native")).c_str(), 1);
  unsetenv("PULSE_SINK");
  unsetenv("PULSE_SOURCE");
  Server = std::make_unique<stage::SoundServer>(Folder.Path(), Cards);
}

PrivateServer::~PrivateServer() {
  Kill();
  setenv("PULSE_SERVER", "unix:/nonexistent", 1);
}

void PrivateServer::Start() {
  Server->Start(Cards);
  if (IsPrompt) Listen();
}

void PrivateServer::Kill() {
  if (Listener) Listener->Signal(SIGKILL);
  Listener.reset();
  Server->Kill();
}

void PrivateServer::Listen() {
  stage::Command command;
  command.Arguments = {"parec", "-d", Cards.Outputs.front() + ".monitor", "--latency-msec=20",
                       "--raw"};
  command.IsRealTime = true;
  Listener = std::make_unique<stage::ChildProcess>(command);
}

/// Without listeners an output is seconds ahead.
void PrivateServer::AwaitPromptness() const {
  const auto playsPromptly = [this] {
    constexpr long kLowUs = 100000;
    const std::string sinks = Control("list sinks");
    const std::size_t output =
        std::min(sinks.find("Name: " + Cards.Outputs.front() + "\n"), sinks.size());
    const char* const line = std::strstr(sinks.c_str() + output, "Latency: ");
    long latencyUs = 0, configuredUs = 0;
    return line &&
           std::sscanf(line, "Latency: %ld usec, configured %ld", &latencyUs, &configuredUs) == 2 &&
           latencyUs < kLowUs && configuredUs < kLowUs;
  };
  constexpr double kLimitSeconds = 20;
  if (!stage::WaitUntil(playsPromptly, kLimitSeconds))
    throw std::runtime_error("the sound server does not play promptly");
}

void PrivateServer::RemoveOutput(const std::string& name) const {
  std::istringstream modules(Control("list short modules"));
  for (std::string module; std::getline(modules, module);) {
    if (module.find("sink_name=" + name) == std::string::npos) continue;
    Control("unload-module " + module.substr(0, module.find('\t')));
  }
}

void PrivateServer::AddOutput(const std::string& name) const {
  Control("load-module module-null-sink sink_name=" + name);
}

int PrivateServer::Level(int channel, const std::string& output) const {
  const std::string answer = Control("get-sink-volume " + output);
  const std::size_t place = answer.find(channel == 0 ? "front-left:" : "front-right:");
  if (place == std::string::npos) return -1;
  return std::atoi(answer.c_str() + answer.find(':', place) + 1);
}

bool PrivateServer::IsMuted(const std::string& output) const {
  return Control("get-sink-mute " + output).find("yes") != std::string::npos;
}

bool PrivateServer::SuspendMicrophone() const {
  Control("suspend-source microphone 1");
  const auto isSuspended = [this] {
    std::istringstream sources(Control("list short sources"));
    for (std::string source; std::getline(sources, source);) {
      if (source.find("\tmicrophone\t") != std::string::npos) return source.ends_with("SUSPENDED");
    }
    return false;
  };
  return stage::WaitUntil(isSuspended, 1);
}

}  // namespace marlex
