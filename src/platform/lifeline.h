#pragma once

#include <memory>
#include <utility>

namespace marlex {

/// Keeps late answers from an owner that is gone or has moved on. An owner that asks for something
/// that a later event will bring ties the answer to its lifeline; once that is cut, or destroyed
/// with its owner, the answer does nothing.
///
/// Tie and cut on the system's thread, on which the answers must arrive as well. A tie may be
/// copied and destroyed on any thread.
class Lifeline {
 public:
  class Tie {
   public:
    Tie() = default;  // tied to nothing
    bool Holds() const { return !Line.expired(); }

   private:
    friend class Lifeline;
    explicit Tie(const std::shared_ptr<char>& line) : Line(line) {}
    std::weak_ptr<char> Line;
  };

  Lifeline() = default;
  Lifeline(const Lifeline&) = delete;
  Lifeline& operator=(const Lifeline&) = delete;

  /// A tie that holds until the next cut.
  Tie Now() const { return Tie(Line); }

  /// Wraps `answer` in a function that takes the same arguments, and calls it only while the tie
  /// holds.
  template <class Answer>
  auto Guard(Answer answer) const {
    return [tie = Now(), answer = std::move(answer)](auto&&... values) {
      if (tie.Holds()) answer(std::forward<decltype(values)>(values)...);
    };
  }

  /// Voids all answers tied so far.
  void Cut() { Line = std::make_shared<char>(); }

 private:
  std::shared_ptr<char> Line = std::make_shared<char>();
};

}  // namespace marlex
