#include "probe_link.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <sstream>
#include <stdexcept>

#include "sound/wait.h"

namespace marlex::stage {
namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

/// Undoes the escaping that keeps a value on one line.
std::string Unescape(const std::string& text) {
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    bool isEscape = text[i] == '\\' && i + 1 < text.size();
    if (!isEscape) {
      plain += text[i];
      continue;
    }
    char letter = text[++i];
    plain += letter == 'n' ? '\n' : letter == 'r' ? '\r' : letter;
  }
  return plain;
}

bool Names(const std::string& key, const std::string& name) {
  return key == name || (key.size() > name.size() && key.ends_with("." + name));
}

}  // namespace

ProbeLink::ProbeLink(const std::string& folder, const std::string& pluginFolder)
    : SocketPath(folder + "/probe"), PluginFolder(pluginFolder) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (SocketPath.size() >= sizeof(address.sun_path))
    throw std::runtime_error("Too long: " + SocketPath);
  std::memcpy(address.sun_path, SocketPath.data(), SocketPath.size());
  unlink(SocketPath.c_str());
  Listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  bool isOpen = bind(Listener, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0 &&
                listen(Listener, 1) == 0;
  if (!isOpen) throw std::runtime_error("Cannot listen at " + SocketPath);
}

ProbeLink::~ProbeLink() {
  Reader.reset();
  close(Listener);
}

Environment ProbeLink::Variables() const {
  return {{"QT_PLUGIN_PATH", PluginFolder},
          {"QT_QPA_GENERIC_PLUGINS", "marlexprobe"},
          {"MARLEX_PROBE_SOCKET", SocketPath}};
}

bool ProbeLink::AwaitProgram(double limitSeconds) {
  Reader.reset();
  {
    std::lock_guard guard(Lock);
    Received.clear();
    Shown.clear();
    Log.clear();
  }
  pollfd wait{Listener, POLLIN, 0};
  if (poll(&wait, 1, int(limitSeconds * 1000)) <= 0) return false;
  int connection = accept4(Listener, nullptr, nullptr, SOCK_CLOEXEC);
  Reader = std::make_unique<ByteReader>(
      connection, [this](double time, std::string_view bytes) { Accept(time, bytes); });
  return true;
}

std::string ProbeLink::Read(const std::string& object, const std::string& property) const {
  std::lock_guard guard(Lock);
  for (const auto& [key, properties] : Shown) {
    auto found = properties.find(property);
    if (Names(key, object) && found != properties.end()) return found->second;
  }
  return {};
}

std::vector<WindowEvent> ProbeLink::Events() const {
  std::lock_guard guard(Lock);
  return Log;
}

std::optional<ScreenArea> ProbeLink::Geometry(const std::string& object) {
  ScreenArea area;
  std::istringstream numbers(Ask("geometry " + object));
  numbers >> area.X >> area.Y >> area.Width >> area.Height;
  return numbers ? std::optional(area) : std::nullopt;
}

std::string ProbeLink::Parts(const std::string& window) { return Ask("parts " + window); }

/// The answer of the probe; empty when there is none.
std::string ProbeLink::Ask(const std::string& question) {
  constexpr double kAnswerLimitSeconds = 10;
  int query = ++LastQuery;
  std::string line = std::to_string(query) + " " + question + "\n";
  if (!Reader || send(Reader->Descriptor(), line.data(), line.size(), MSG_NOSIGNAL) < 0) return {};
  auto answered = [this, query] {
    std::lock_guard guard(Lock);
    return Answers.contains(query);
  };
  if (!WaitUntil(answered, kAnswerLimitSeconds)) return {};
  std::lock_guard guard(Lock);
  return Answers[query];
}

void ProbeLink::Accept(double, std::string_view bytes) {
  std::lock_guard guard(Lock);
  Received += bytes;
  size_t start = 0;
  for (size_t end = Received.find('\n'); end != std::string::npos;
       end = Received.find('\n', start)) {
    TakeLine(Received.substr(start, end - start));
    start = end + 1;
  }
  Received.erase(0, start);
}

void ProbeLink::TakeLine(const std::string& line) {
  constexpr double kMicrosecond = 1e-6;
  if (line.size() < 2) return;
  std::vector<std::string> parts = Split(line.substr(2), '\t');
  parts.resize(4);
  if (line[0] == '=') Answers[std::stoi(parts[0])] = Unescape(parts[1]);
  if (line[0] != '!') return;
  WindowEvent event{std::stod(parts[0]) * kMicrosecond, parts[1], parts[2], Unescape(parts[3])};
  Shown[event.Object][event.Property] = event.Value;
  Log.push_back(std::move(event));
}

}  // namespace marlex::stage
