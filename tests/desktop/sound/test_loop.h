#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/event_loop.h"

namespace marlex {

/// A loop of posted events in real time.
class TestLoop : public EventLoop {
 public:
  TimerId StartTimer(int, std::function<void()>) override { return 0; }
  void StopTimer(TimerId) override {}

  void Post(std::function<void()> event) override {
    {
      const std::scoped_lock lock(Guard);
      Events.push_back(std::move(event));
    }
    Arrived.notify_one();
  }

  void Pump() override {
    while (DeliverOne(std::chrono::steady_clock::now())) {
    }
  }

  void PumpUntil(const std::function<bool()>& done) override {
    Within(std::chrono::hours(1), done);
  }

  /// Delivers events until `done` holds, testing it every few milliseconds; false when the limit
  /// passes first.
  bool Within(std::chrono::milliseconds limit, const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!done()) {
      const auto now = std::chrono::steady_clock::now();
      if (now >= end) return false;
      DeliverOne(std::min(end, now + std::chrono::milliseconds(2)));
    }
    return true;
  }

 private:
  bool DeliverOne(std::chrono::steady_clock::time_point until) {
    std::function<void()> event;
    {
      std::unique_lock lock(Guard);
      if (!Arrived.wait_until(lock, until, [this] { return !Events.empty(); })) return false;
      event = std::move(Events.front());
      Events.pop_front();
    }
    Deliver(event);
    return true;
  }

  std::mutex Guard;
  std::condition_variable Arrived;
  std::deque<std::function<void()>> Events;
};

}  // namespace marlex
