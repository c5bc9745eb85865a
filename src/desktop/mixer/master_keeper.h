#pragma once

#include <memory>
#include <thread>

#include "desktop/mixer/master_device.h"
#include "platform/event_loop.h"
#include "platform/lifeline.h"

namespace marlex {

/// Keeps a card's master as it is wished. A thread of its own does the calls, which may block as
/// long as a server hangs. It follows wishes, notices when the device is lost, looks for it again,
/// at first after a second and then ever less often, and sets the last wish again when it is back.
/// While all is well it sleeps.
class MasterKeeper : public CardMaster {
 public:
  /// Waits for the card's answer, a second at most.
  MasterKeeper(EventLoop& loop, OpenMaster open);

  /// Waits for the thread, half a second at most; one that hangs in a call is left behind.
  ~MasterKeeper() override;

  MasterKeeper(const MasterKeeper&) = delete;
  MasterKeeper& operator=(const MasterKeeper&) = delete;

  std::optional<CardState> Found() const override;
  void Wish(const CardWish& wish) override;
  void SetWanted(bool wanted) override;
  void Settle() override;

 private:
  class Worker;
  const Lifeline Life;
  std::shared_ptr<Worker> Work;  // shared with the thread
  std::thread Thread;
};

}  // namespace marlex
