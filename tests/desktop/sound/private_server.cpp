#include "desktop/sound/private_server.h"

#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "places.h"

namespace marlex {
namespace {

using namespace std::chrono_literals;

pid_t Spawn(const std::vector<std::string>& words, int output) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process for " + words[0]);
  if (child > 0) return child;
  const int nothing = open("/dev/null", O_RDWR);
  dup2(nothing, 0);
  dup2(output >= 0 ? output : nothing, 1);
  dup2(nothing, 2);
  // Where it is permitted, server and recorder run in real time, so that a busy machine does not
  // spoil the sound.
  sched_param realTime = {};
  realTime.sched_priority = 10;
  sched_setscheduler(0, SCHED_RR, &realTime);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

std::string OutputOf(const std::string& command) {
  std::string text;
  FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
  std::array<char, 4096> block;
  while (const size_t count = fread(block.data(), 1, block.size(), pipe))
    text.append(block.data(), count);
  pclose(pipe);
  return text;
}

}  // namespace

PrivateServer::PrivateServer() {
  std::string pattern = (std::filesystem::temp_directory_path() / "marlex-server-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no directory for a sound server");
  Directory = pattern;
  setenv("HOME", Directory.c_str(), 1);
  setenv("XDG_RUNTIME_DIR", Directory.c_str(), 1);
  setenv("PULSE_SERVER", ("unix:" + (Directory / "native").string()).c_str(), 1);
  unsetenv("PULSE_SINK");
  unsetenv("PULSE_SOURCE");
  Start();
  Settle();
}

PrivateServer::~PrivateServer() {
  Kill();
  setenv("PULSE_SERVER", "unix:/nonexistent", 1);
  std::error_code ignored;
  std::filesystem::remove_all(Directory, ignored);
}

void PrivateServer::Start() {
  const std::vector<std::string> words = {
      (MARLEX_SOURCE_DIR "/tests/sound/private_server"),
      Directory.string(),
      "module-null-sink sink_name=desk sink_properties=device.description=Desk",
      "module-null-sink sink_name=other",
      "module-null-sink sink_name=mouth",
      "module-remap-source source_name=mic master=mouth.monitor"};
  Server = Spawn(words, -1);
  for (int i = 0; i < 1000 && Control("info").find("Server Name") == std::string::npos; ++i) {
    std::this_thread::sleep_for(10ms);
  }
  // One kind of server answers before it is fully set up.
  for (int i = 0; i < 1000 && Control("get-default-source").rfind("mic\n", 0) != 0; ++i) {
    Control("set-default-sink desk");
    Control("set-default-source mic");
    std::this_thread::sleep_for(10ms);
  }
  Listener = Spawn({"parec", "-d", "desk.monitor", "--latency-msec=20", "--raw"}, -1);
}

void PrivateServer::Settle() {
  for (int i = 0; i < 1000; ++i) {
    const std::string sinks = Control("list sinks");
    const std::size_t desk = std::min(sinks.find("Name: desk"), sinks.size());
    long latencyUs = 0, configuredUs = 0;
    const char* const line = std::strstr(sinks.c_str() + desk, "Latency: ");
    constexpr long kLowUs = 100000;
    if (line &&
        std::sscanf(line, "Latency: %ld usec, configured %ld", &latencyUs, &configuredUs) == 2 &&
        latencyUs < kLowUs && configuredUs < kLowUs) {
      return;
    }
    std::this_thread::sleep_for(10ms);
  }
}

void PrivateServer::Kill() {
  for (pid_t* process : {&Listener, &Server}) {
    if (*process <= 0) continue;
    kill(*process, SIGKILL);
    waitpid(*process, nullptr, 0);
    *process = -1;
  }
}

std::string PrivateServer::Control(const std::string& arguments) const {
  return OutputOf("pactl " + arguments);
}

bool PrivateServer::SuspendMicrophone() const {
  Control("suspend-source mic 1");
  for (int i = 0; i < 100; ++i) {
    const std::string sources = Control("list short sources");
    const std::size_t microphone = sources.find("\tmic\t");
    if (microphone == std::string::npos) return false;
    const std::size_t end = sources.find('\n', microphone);
    if (sources.substr(microphone, end - microphone).ends_with("SUSPENDED")) return true;
    std::this_thread::sleep_for(10ms);
  }
  return false;
}

void PrivateServer::RemoveDesk() const {
  std::istringstream modules(Control("list short modules"));
  for (std::string module; std::getline(modules, module);) {
    if (module.find("sink_name=desk") == std::string::npos) continue;
    Control("unload-module " + module.substr(0, module.find('\t')));
  }
}

Recording::Recording(const std::string& sink) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  Process = Spawn({"parec", "-d", sink + ".monitor", "--format=float32le", "--rate=44100",
                   "--channels=2", "--raw", "--latency-msec=10"},
                  ends[1]);
  close(ends[1]);
  Pipe = ends[0];
  fcntl(Pipe, F_SETFL, O_NONBLOCK);
  for (int i = 0; i < 500 && Sound().empty(); ++i) std::this_thread::sleep_for(10ms);
}

Recording::~Recording() {
  kill(Process, SIGKILL);
  waitpid(Process, nullptr, 0);
  close(Pipe);
}

const std::vector<float>& Recording::Sound() {
  std::array<char, 65536> block;
  for (ssize_t count = 0; (count = read(Pipe, block.data(), block.size())) > 0;) {
    Bytes.append(block.data(), std::size_t(count));
  }
  const std::size_t whole = Bytes.size() / 8 * 2;
  const std::size_t known = Samples.size();
  Samples.resize(whole);
  if (whole == known) return Samples;
  std::memcpy(&Samples[known], &Bytes[known * 4], (whole - known) * 4);
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  Deliveries.push_back({whole / 2, std::chrono::duration<double>(now).count()});
  return Samples;
}

double Recording::TimeOf(std::size_t frame) const {
  constexpr double kRate = 44100;
  double first = 1e300;  // time at which frame 0 would have come if there were no gap
  for (const Delivery& delivery : Deliveries) {
    if (delivery.Frames <= frame || delivery.Frames > frame + std::size_t(kRate / 2)) continue;
    first = std::min(first, delivery.Seconds - double(delivery.Frames) / kRate);
  }
  return first + double(frame) / kRate;
}

float Recording::Latest(int frames) {
  Sound();
  float loudest = 0;
  const std::size_t begin = Samples.size() - std::min(Samples.size(), std::size_t(frames) * 2);
  for (std::size_t i = begin; i < Samples.size(); ++i)
    loudest = std::max(loudest, std::fabs(Samples[i]));
  return loudest;
}

ProcessCost CostOf(pid_t process) {
  ProcessCost cost;
  const std::filesystem::path home = "/proc/" + std::to_string(process);
  std::error_code ignored;
  for (const auto& thread : std::filesystem::directory_iterator(home / "task", ignored)) {
    std::ifstream status(thread.path() / "status");
    for (std::string line; std::getline(status, line);) {
      if (line.rfind("voluntary_ctxt_switches:", 0) == 0)
        cost.Wakeups += std::stol(line.substr(24));
    }
    std::ifstream time(thread.path() / "schedstat");
    double nanoseconds = 0;
    time >> nanoseconds;
    cost.Seconds += nanoseconds / 1e9;
  }
  return cost;
}

}  // namespace marlex
