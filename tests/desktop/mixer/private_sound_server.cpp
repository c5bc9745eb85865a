#include "desktop/mixer/private_sound_server.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "places.h"

namespace marlex {

namespace {

using namespace std::chrono_literals;

constexpr auto kStartLimit = 20s;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

PrivateSoundServer::PrivateSoundServer() : OldServer(Environment("PULSE_SERVER")) {
  std::string pattern = (std::filesystem::temp_directory_path() / "sound_XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no directory for a sound server");
  Directory = pattern;
  setenv("PULSE_SERVER", ("unix:" + Directory + "/native").c_str(), 1);
}

PrivateSoundServer::~PrivateSoundServer() {
  Kill();
  if (OldServer.empty()) {
    unsetenv("PULSE_SERVER");
  } else {
    setenv("PULSE_SERVER", OldServer.c_str(), 1);
  }
  std::filesystem::remove_all(Directory);
}

bool PrivateSoundServer::IsInstalled() {
  return std::system(
             "command -v pactl > /dev/null 2>&1 && { command -v pulseaudio || command -v "
             "wireplumber; } > /dev/null 2>&1") == 0;
}

bool PrivateSoundServer::Start() {
  Kill();
  std::filesystem::remove(Directory + "/native");
  Server = fork();
  if (Server == 0) {
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, standard);
    setenv("HOME", Directory.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", Directory.c_str(), 1);
    execl(MARLEX_SOURCE_DIR "/tests/sound/private_server", "private_server", Directory.c_str(),
          "module-null-sink sink_name=card", static_cast<char*>(nullptr));
    _exit(127);
  }
  const auto deadline = std::chrono::steady_clock::now() + kStartLimit;
  while (Level(0) < 0) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(20ms);
  }
  return true;
}

void PrivateSoundServer::Kill() {
  if (Server <= 0) return;
  kill(Server, SIGKILL);
  waitpid(Server, nullptr, 0);
  Server = 0;
}

std::string PrivateSoundServer::Ask(const std::string& arguments) const {
  std::string answer;
  FILE* pipe = popen(("LC_ALL=C pactl " + arguments + " 2>/dev/null").c_str(), "r");
  if (!pipe) return answer;
  char buffer[512];
  while (std::fgets(buffer, sizeof buffer, pipe)) answer += buffer;
  pclose(pipe);
  return answer;
}

void PrivateSoundServer::RemoveCard() const {
  std::istringstream modules(Ask("list short modules"));
  for (std::string module; std::getline(modules, module);) {
    if (module.find("sink_name=card") == std::string::npos) continue;
    Ask("unload-module " + module.substr(0, module.find('\t')));
  }
}

int PrivateSoundServer::Level(int channel, const std::string& output) const {
  const std::string answer = Ask("get-sink-volume " + output);
  const std::size_t place = answer.find(channel == 0 ? "front-left:" : "front-right:");
  if (place == std::string::npos) return -1;
  return std::atoi(answer.c_str() + answer.find(':', place) + 1);
}

bool PrivateSoundServer::IsMuted(const std::string& output) const {
  return Ask("get-sink-mute " + output).find("yes") != std::string::npos;
}

}  // namespace marlex
