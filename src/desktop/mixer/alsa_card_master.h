#pragma once

#include <memory>
#include <string>
#include <thread>

#include "desktop/mixer/card_master.h"
#include "platform/event_loop.h"

namespace marlex {

/// The card's master through ALSA's simple mixer. The device "default" is the door to PulseAudio
/// and PipeWire also, where one of them runs: then it is the master of the server's default output.
///
/// A thread of its own does the calls, which may block as long as a server hangs. It follows
/// wishes, notices when the device is lost, looks for it again, at first after a second and then
/// ever less often, and sets the last wish anew when it is back. While all is well it sleeps.
class AlsaCardMaster : public CardMaster {
 public:
  /// Waits for the card's answer, a second at most.
  explicit AlsaCardMaster(EventLoop& loop, const std::string& device = "default");

  /// Waits for the thread, half a second at most; one that hangs in a call is left behind.
  ~AlsaCardMaster() override;

  AlsaCardMaster(const AlsaCardMaster&) = delete;
  AlsaCardMaster& operator=(const AlsaCardMaster&) = delete;

  std::optional<CardState> Found() const override;
  void Wish(const CardWish& wish) override;
  void SetWanted(bool wanted) override;
  void Settle() override;

 private:
  class Worker;
  const std::shared_ptr<bool> Token =
      std::make_shared<bool>(true);  // a posted event finds out whether we live
  std::shared_ptr<Worker> Work;      // shared with the thread
  std::thread Thread;
};

}  // namespace marlex
