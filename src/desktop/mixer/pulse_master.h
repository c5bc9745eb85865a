#pragma once

#include <atomic>
#include <string>

#include "desktop/mixer/master_device.h"
#include "desktop/sound/pulse_connection.h"

namespace marlex {

/// The volume and mute of one output of the sound server, even if it is not the default one.
class PulseMaster : public MasterDevice {
 public:
  /// Null when the server does not answer or has no such output.
  static std::unique_ptr<PulseMaster> Open(const std::string& sink);

  PulseMaster(std::unique_ptr<PulseConnection> connection, int events);
  ~PulseMaster() override;
  PulseMaster(const PulseMaster&) = delete;
  PulseMaster& operator=(const PulseMaster&) = delete;

  CardState Read() const override { return State; }
  void AppendDescriptors(std::vector<pollfd>& descriptors) const override;
  bool HandleEvents() override;

 private:
  bool Find(const std::string& sink);
  static void Take(pa_context*, const pa_sink_info* info, int, void* self);
  bool Watch();
  void Lose();
  bool SetLevel(StereoLevel level) override;
  bool SetMute(bool muted) override;

  std::unique_ptr<PulseConnection> Connection;
  const int Events;  // becomes readable when the output is lost
  std::atomic<bool> Lost{false};
  std::atomic<std::uint32_t> Index{PA_INVALID_INDEX};  // of the output
  pa_channel_map Channels = {};
  CardState State;  // as found when opened
};

}  // namespace marlex
