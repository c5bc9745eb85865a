#include "platform/event_queue.h"

#include <algorithm>
#include <utility>

namespace marlex {

EventQueue::TimerId EventQueue::StartTimer(Time now, Time interval,
                                           std::function<void()> onTimeout) {
  const std::uint64_t order = NextOrder++;
  Timers.push_back({now + interval, order, interval, order,
                    std::make_shared<const std::function<void()>>(std::move(onTimeout))});
  return order;
}

void EventQueue::StopTimer(TimerId timer) {
  std::erase_if(Timers, [timer](const Timer& running) { return running.Id == timer; });
}

void EventQueue::Add(Time due, std::function<void()> event) {
  Once.push_back({due, NextOrder++, std::move(event)});
  std::push_heap(Once.begin(), Once.end(), ComesLater);
}

std::optional<EventQueue::Next> EventQueue::FindNext() const {
  std::optional<Next> next;
  if (!Once.empty()) next = Next{Once.front().Due, Once.front().Order, kOnce};
  for (std::size_t i = 0; i < Timers.size(); ++i) {
    const Timer& timer = Timers[i];
    const bool earlier =
        !next || timer.Due < next->Due || (timer.Due == next->Due && timer.Order < next->Order);
    if (earlier) next = Next{timer.Due, timer.Order, i};
  }
  return next;
}

EventQueue::Event EventQueue::Take(const Next& next, Time now) {
  return next.Timer == kOnce ? TakeOnce() : TakeTimer(Timers[next.Timer], now);
}

void EventQueue::Clear() {
  Timers.clear();
  Once.clear();
}

bool EventQueue::ComesLater(const Queued& left, const Queued& right) {
  return std::pair(left.Due, left.Order) > std::pair(right.Due, right.Order);
}

EventQueue::Event EventQueue::TakeTimer(Timer& timer, Time now) {
  timer.Due += timer.Interval;
  if (timer.Due <= now) timer.Due += ((now - timer.Due) / timer.Interval + 1) * timer.Interval;
  timer.Order = NextOrder++;
  return timer.OnTimeout;
}

EventQueue::Event EventQueue::TakeOnce() {
  std::pop_heap(Once.begin(), Once.end(), ComesLater);
  auto event = std::make_shared<const std::function<void()>>(std::move(Once.back().Callback));
  Once.pop_back();
  return event;
}

}  // namespace marlex
