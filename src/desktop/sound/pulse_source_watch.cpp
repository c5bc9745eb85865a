#include "desktop/sound/pulse_source_watch.h"

#include <utility>

#include "desktop/sound/pulse_volume.h"

namespace marlex {

PulseSourceWatch::PulseSourceWatch(PulseConnection& connection, const std::string& source,
                                   std::atomic<bool>& isGone)
    : Connection(connection), Source(source), IsGone(isGone) {
  pa_context* const server = Connection.Context();
  const auto changed = [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
    static_cast<PulseSourceWatch*>(self)->Ask();
  };
  pa_context_set_subscribe_callback(server, changed, this);
  Release(pa_context_subscribe(server, PA_SUBSCRIPTION_MASK_SOURCE, nullptr, nullptr));
  Ask();
}

PulseSourceWatch::~PulseSourceWatch() {
  pa_context_set_subscribe_callback(Connection.Context(), nullptr, nullptr);
  EndAsking();
}

/// The server answers with the source, then with the end of the list, or with an error alone.
void PulseSourceWatch::Ask() {
  EndAsking();
  const auto take = [](pa_context*, const pa_source_info* info, int, void* self) {
    auto& watch = *static_cast<PulseSourceWatch*>(self);
    if (info) watch.IsHere = true;
    if (!info) watch.IsGone = !watch.IsHere;
  };
  IsHere = false;
  Asking = pa_context_get_source_info_by_name(Connection.Context(), Source.c_str(), take, this);
}

/// An answer that comes later must not reach a watch that is gone.
void PulseSourceWatch::EndAsking() {
  pa_operation* const asking = std::exchange(Asking, nullptr);
  if (!asking) return;
  pa_operation_cancel(asking);
  pa_operation_unref(asking);
}

}  // namespace marlex
