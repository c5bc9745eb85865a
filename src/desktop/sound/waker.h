#pragma once

#include <semaphore.h>

#include <cstdint>

namespace marlex {

/// Wakes one waiting thread. Wake-ups are counted, so none that comes before the wait is missed.
class Waker {
 public:
  Waker() { sem_init(&Count, 0, 0); }
  ~Waker() { sem_destroy(&Count); }
  Waker(const Waker&) = delete;
  Waker& operator=(const Waker&) = delete;

  /// From any thread, a rendering one included: never locks.
  void Wake() { sem_post(&Count); }

  // For the waiting thread.

  /// Waits until it is woken (true), or until the steady clock reaches `dueUs` microseconds
  /// (false).
  bool WaitUntil(std::int64_t dueUs);

  /// Takes all wake-ups that have come; does not wait.
  void Drain() {
    while (sem_trywait(&Count) == 0) {
    }
  }

 private:
  sem_t Count;
};

}  // namespace marlex
