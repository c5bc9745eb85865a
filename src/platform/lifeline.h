#pragma once

#include <memory>
#include <utility>

namespace marlex {

/// Keeps late answers from an owner who has gone or moved on. Whoever asks for something that an
/// event of the loop will bring ties the answer to his lifeline; once that is cut, or has gone with
/// its owner, the answer does nothing.
///
/// Tie and cut on the system's thread, where the answers come as well. A tie may be copied and
/// destroyed on any thread.
class Lifeline {
 public:
  class Tie {
   public:
    Tie() = default;  // to nothing
    bool Holds() const { return !Line.expired(); }

   private:
    friend class Lifeline;
    explicit Tie(const std::shared_ptr<char>& line) : Line(line) {}
    std::weak_ptr<char> Line;
  };

  Lifeline() = default;
  Lifeline(const Lifeline&) = delete;
  Lifeline& operator=(const Lifeline&) = delete;

  /// Holds until the next cut.
  Tie Now() const { return Tie(Line); }

  /// `answer`, which is called with whatever it takes, for as long as the tie holds.
  template <class Answer>
  auto Guard(Answer answer) const {
    return [tie = Now(), answer = std::move(answer)](auto&&... values) {
      if (tie.Holds()) answer(std::forward<decltype(values)>(values)...);
    };
  }

  /// From here on nothing that was tied before is answered.
  void Cut() { Line = std::make_shared<char>(); }

 private:
  std::shared_ptr<char> Line = std::make_shared<char>();
};

}  // namespace marlex
