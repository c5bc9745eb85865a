#pragma once

#include <memory>
#include <thread>

#include "desktop/mixer/master_device.h"
#include "platform/event_loop.h"
#include "platform/lifeline.h"

namespace marlex {

/// Keeps a card's master in the desired state. A thread of its own makes the calls, which may block
/// while a server hangs. It applies wishes and notices when the device is lost; it then looks for
/// the device again, first after one second, then after intervals that double up to one minute, and
/// applies the latest wish when it is back. While nothing changes it sleeps.
class MasterKeeper : public CardMaster {
 public:
  /// Waits at most a second for the card's answer.
  MasterKeeper(EventLoop& loop, OpenMaster open);

  /// Waits at most half a second for the thread to end. A thread that hangs in a call is abandoned.
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
