#include "desktop/mixer/master_keeper.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

namespace marlex {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

constexpr auto kFirstAnswerLimit = 1s;
constexpr auto kSettleLimit = 200ms;
constexpr auto kFarewellLimit = 500ms;
constexpr milliseconds kFirstRetry = 1s;
constexpr milliseconds kLongestRetry = 60s;
constexpr milliseconds kForever(-1);
// Keeps a device that reports events without end from using up the processor.
constexpr milliseconds kBetweenEvents = 20ms;

}  // namespace

class MasterKeeper::Worker {
 public:
  Worker(OpenMaster open, std::function<void()> report)
      : Open(std::move(open)),
        Waker(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
        Report(std::move(report)) {}
  ~Worker() { close(Waker); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  // For the system's thread.

  std::optional<CardState> FoundState() {
    const std::lock_guard<std::mutex> lock(Guard);
    return Found;
  }

  void Wish(const CardWish& wish) {
    const std::lock_guard<std::mutex> lock(Guard);
    if (wish == Wished) return;
    Wished = wish;
    Settled = false;
    if (Found) Wake();  // while the master is gone, wishes must not speed up the search
  }

  void SetWanted(bool wanted) {
    Wanted = wanted;
    ++Orders;
    Wake();
  }

  void AwaitFirstAnswer() {
    std::unique_lock<std::mutex> lock(Guard);
    Changed.wait_for(lock, kFirstAnswerLimit, [this] { return Looked; });
  }

  void AwaitSettled() {
    std::unique_lock<std::mutex> lock(Guard);
    Changed.wait_for(lock, kSettleLimit, [this] { return Settled || !Found; });
  }

  /// Asks the thread to end; false if it has not ended within the limit.
  bool Finish() {
    std::unique_lock<std::mutex> lock(Guard);
    Report = nullptr;
    Quit = true;
    ++Orders;
    Wake();
    return Changed.wait_for(lock, kFarewellLimit, [this] { return Ended; });
  }

  // For the worker's thread.

  void Run() {
    milliseconds retry = kFirstRetry;
    while (!Quit) {
      const std::uint64_t order = Orders;
      if (!Wanted) {
        SleepUntilWoken(kForever);
        retry = kFirstRetry;
        continue;
      }
      if (FollowMaster(order)) retry = kFirstRetry;
      if (order == Orders) SleepUntilWoken(retry);
      retry = std::min(2 * retry, kLongestRetry);
    }
    const std::lock_guard<std::mutex> lock(Guard);
    Ended = true;
    Changed.notify_all();
  }

 private:
  /// Opens the device and serves it until it is lost or `Orders` changes. False when there is no
  /// master.
  bool FollowMaster(std::uint64_t order) {
    const std::unique_ptr<MasterDevice> master = Open();
    if (!master) {
      Publish(std::nullopt);
      return false;
    }
    const CardState found = master->Read();
    if (ApplyWish(*master)) {
      Publish(found);
      while (order == Orders && ApplyWish(*master) && AwaitEvents(*master)) continue;
    }
    Publish(std::nullopt);
    return true;
  }

  bool ApplyWish(MasterDevice& master) {
    CardWish wish;
    {
      const std::lock_guard<std::mutex> lock(Guard);
      if (Settled && Found) return true;
      wish = Wished;
    }
    if (!master.Apply(wish)) return false;
    const std::lock_guard<std::mutex> lock(Guard);
    Settled = wish == Wished;
    Changed.notify_all();
    return true;
  }

  /// Sleeps until a wish is made or the device has an event. False when the device is lost.
  bool AwaitEvents(MasterDevice& master) {
    std::vector<pollfd> descriptors = {{Waker, POLLIN, 0}};
    master.AppendDescriptors(descriptors);
    poll(descriptors.data(), descriptors.size(), -1);
    short card = 0;
    for (std::size_t i = 1; i < descriptors.size(); ++i) card |= descriptors[i].revents;
    if (card & (POLLERR | POLLHUP | POLLNVAL)) return false;
    if (card) {
      if (!master.HandleEvents()) return false;
      SleepUntilWoken(kBetweenEvents);
    }
    ForgetWakes();
    return true;
  }

  void SleepUntilWoken(milliseconds limit) {
    pollfd descriptor = {Waker, POLLIN, 0};
    poll(&descriptor, 1, static_cast<int>(limit.count()));
    ForgetWakes();
  }

  void Wake() { eventfd_write(Waker, 1); }

  void ForgetWakes() {
    eventfd_t ignored;
    eventfd_read(Waker, &ignored);
  }

  void Publish(const std::optional<CardState>& found) {
    const std::lock_guard<std::mutex> lock(Guard);
    Looked = true;
    const bool changed = found.has_value() != Found.has_value();
    Found = found;
    Changed.notify_all();
    if (changed && Report) Report();
  }

  const OpenMaster Open;
  const int Waker;

  std::atomic<bool> Wanted{true};
  std::atomic<bool> Quit{false};
  std::atomic<std::uint64_t> Orders{0};  // counts the changes of `Wanted` and `Quit`

  std::mutex Guard;  // guards the members below; never held during a call of the device
  std::condition_variable Changed;
  std::function<void()> Report;  // null when nobody listens any more
  CardWish Wished;
  std::optional<CardState> Found;  // as it was before the wish was applied
  bool Settled = true;             // the card has the latest wish
  bool Looked = false;             // the first search for the card is over
  bool Ended = false;
};

MasterKeeper::MasterKeeper(EventLoop& loop, OpenMaster open) {
  const auto changed = Life.Guard([this] {
    if (OnChange) OnChange();
  });
  const auto report = [&loop, changed] { loop.Post(changed); };
  Work = std::make_shared<Worker>(std::move(open), report);
  Thread = std::thread([work = Work] { work->Run(); });
  Work->AwaitFirstAnswer();
}

MasterKeeper::~MasterKeeper() {
  if (Work->Finish()) {
    Thread.join();
  } else {
    Thread.detach();
  }
}

std::optional<CardState> MasterKeeper::Found() const { return Work->FoundState(); }

void MasterKeeper::Wish(const CardWish& wish) { Work->Wish(wish); }

void MasterKeeper::SetWanted(bool wanted) { Work->SetWanted(wanted); }

void MasterKeeper::Settle() { Work->AwaitSettled(); }

}  // namespace marlex
