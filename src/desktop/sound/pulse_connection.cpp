#include "desktop/sound/pulse_connection.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <thread>

#include "desktop/sound/steady_time.h"
#include "desktop/sound/thread_priority.h"

namespace marlex {
namespace {

constexpr std::int64_t kLimitUs = 1500 * kUsPerMs;       // for one answer of the server
constexpr std::int64_t kStartUs = 10 * kUsPerSecond;     // for the server to start with the session
constexpr auto kPause = std::chrono::milliseconds(200);  // between two attempts until then
constexpr std::int64_t kCardUs = 5 * kUsPerSecond;       // for the session to find its first card
constexpr std::int64_t kOthersUs = kUsPerSecond;         // for its other cards after that
constexpr char kDummySink[] = "auto_null";               // in PulseAudio and PipeWire alike

/// A search for a source, and what the server answered.
struct SourceSearch {
  std::string Asked;
  std::string Name;
};

void TakeServer(pa_context*, const pa_server_info* info, void* card) {
  auto& names = *static_cast<PulseCard*>(card);
  if (!info) return;
  if (info->default_sink_name) names.Sink = info->default_sink_name;
  if (info->default_source_name) names.Source = info->default_source_name;
}

/// Stores the sink's real name: the name asked for may have been an alias of the default card.
void TakeSink(pa_context*, const pa_sink_info* info, int, void* card) {
  if (!info) return;
  auto& sink = *static_cast<PulseCard*>(card);
  sink.Sink = info->name;
  sink.Description = info->description ? info->description : info->name;
  sink.Dummy = sink.Sink == kDummySink;
  sink.FlatVolume = (info->flags & PA_SINK_FLAT_VOLUME) != 0;
}

/// Takes the source asked for unless it is the monitor of an output; otherwise the first source
/// that is not.
void TakeSource(pa_context*, const pa_source_info* info, int, void* search) {
  if (!info || info->monitor_of_sink != PA_INVALID_INDEX) return;
  auto& source = *static_cast<SourceSearch*>(search);
  if (source.Name.empty() || source.Asked == info->name) source.Name = info->name;
}

std::string Surrounding(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

/// Whether a server has created its socket, or, while it starts, the file with its process id.
bool ServerMayCome() {
  std::error_code ignored;
  const std::string address = Surrounding("PULSE_SERVER");
  const std::string_view kLocal = "unix:";
  if (address.starts_with(kLocal))
    return std::filesystem::exists(address.substr(kLocal.size()), ignored);
  if (!address.empty()) return std::filesystem::exists(address, ignored);
  std::filesystem::path folder = Surrounding("PULSE_RUNTIME_PATH");
  if (folder.empty()) folder = std::filesystem::path(Surrounding("XDG_RUNTIME_DIR")) / "pulse";
  return std::filesystem::exists(folder / "native", ignored) ||
         std::filesystem::exists(folder / "pid", ignored);
}

}  // namespace

std::unique_ptr<PulseConnection> PulseConnection::Connect() { return ConnectWithin(kLimitUs); }

/// A server that hangs holds up the attempt itself; one that is not there yet refuses it at once.
std::unique_ptr<PulseConnection> PulseConnection::ConnectAtStart() {
  const std::int64_t dueUs = SteadyUs() + kStartUs;
  for (;;) {
    auto connection = ConnectWithin(std::max(dueUs - SteadyUs(), kLimitUs));
    if (connection || SteadyUs() >= dueUs || !ServerMayCome()) return connection;
    std::this_thread::sleep_for(kPause);
  }
}

std::unique_ptr<PulseConnection> PulseConnection::ConnectWithin(std::int64_t limitUs) {
  auto connection = std::make_unique<PulseConnection>();
  connection->LimitUs = limitUs;
  const auto settled = [&] {
    return connection->Good() || !PA_CONTEXT_IS_GOOD(pa_context_get_state(connection->Server));
  };
  if (!connection->Begin() || !connection->Await(settled, limitUs)) return nullptr;
  bool good = false;
  connection->Locked([&] { good = connection->Good(); });
  return good ? std::move(connection) : nullptr;
}

PulseConnection::PulseConnection() = default;

PulseConnection::~PulseConnection() {
  if (Server) {
    Locked([this] {
      pa_context_set_state_callback(Server, nullptr, nullptr);
      pa_context_disconnect(Server);
    });
  }
  if (Loop) pa_threaded_mainloop_stop(Loop);
  if (Server) pa_context_unref(Server);
  if (Loop) pa_threaded_mainloop_free(Loop);
}

bool PulseConnection::Begin() {
  Loop = pa_threaded_mainloop_new();
  if (!Loop) return false;
  pa_threaded_mainloop_set_name(Loop, "marlex-pulse");
  Server = pa_context_new(pa_threaded_mainloop_get_api(Loop), "Marlex");
  if (!Server) return false;
  pa_context_set_state_callback(Server, StateChanged, this);
  return pa_context_connect(Server, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) == 0 &&
         pa_threaded_mainloop_start(Loop) == 0;
}

void PulseConnection::StateChanged(pa_context* context, void* self) {
  auto& connection = *static_cast<PulseConnection*>(self);
  connection.Signal();
  if (pa_context_get_state(context) == PA_CONTEXT_AUTHORIZING) PreferThisThread();
  if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(context)) && connection.OnLost) connection.OnLost();
}

void PulseConnection::Locked(const std::function<void()>& action) const {
  pa_threaded_mainloop_lock(Loop);
  action();
  pa_threaded_mainloop_unlock(Loop);
}

bool PulseConnection::Await(const std::function<bool()>& done, std::int64_t limitUs) {
  const std::int64_t due = SteadyUs() + limitUs;
  bool isDone = false;
  do Locked([&] { isDone = done(); });
  while (!isDone && Changes.WaitUntil(due));
  return isDone;
}

bool PulseConnection::Complete(const std::function<pa_operation*()>& start) {
  pa_operation* operation = nullptr;
  Locked([&] {
    operation = start();
    const auto signal = [](pa_operation*, void* self) {
      static_cast<PulseConnection*>(self)->Signal();
    };
    if (operation) pa_operation_set_state_callback(operation, signal, this);
  });
  if (!operation) return false;
  const bool done =
      Await([&] { return pa_operation_get_state(operation) != PA_OPERATION_RUNNING; }, LimitUs);
  Locked([&] {
    // A late answer must not reach a caller that is gone.
    if (!done) pa_operation_cancel(operation);
    pa_operation_unref(operation);
  });
  return done;
}

bool PulseConnection::Good() const { return pa_context_get_state(Server) == PA_CONTEXT_READY; }

bool FindCard(PulseConnection& connection, PulseCard& card) {
  pa_context* const server = connection.Context();
  PulseCard names;
  if (!connection.Complete([&] { return pa_context_get_server_info(server, TakeServer, &names); }))
    return false;
  PulseCard found;
  connection.Complete([&] {
    return pa_context_get_sink_info_by_name(server, names.Sink.c_str(), TakeSink, &found);
  });
  SourceSearch source{names.Source, {}};
  connection.Complete([&] { return pa_context_get_source_info_list(server, TakeSource, &source); });
  if (found.Sink.empty()) return false;
  card = found;
  card.Source = source.Name;
  return true;
}

/// The cards of a session appear one after the other, and the default may change with each.
bool FindCardAtStart(PulseConnection& connection, PulseCard& card) {
  bool found = FindCard(connection, card);
  bool settling = false;
  if (found && !card.Dummy) return true;
  std::int64_t dueUs = SteadyUs() + kCardUs;
  while (SteadyUs() < dueUs) {
    std::this_thread::sleep_for(kPause);
    found = FindCard(connection, card);
    if (!found || card.Dummy || settling) continue;
    settling = true;
    dueUs = SteadyUs() + kOthersUs;
  }
  return found;
}

}  // namespace marlex
