#include "simulation/simulated_dialogs.h"

#include <cstddef>
#include <cstdint>

namespace marlex {

namespace {

/// The text in one line: each line break becomes a bar.
std::string InOneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    if (c == '\r') continue;
    line += c == '\n' ? '|' : c;
  }
  return line;
}

/// Holds one place in the list of open boxes until the box closes, however it does.
class OpenBox {
 public:
  explicit OpenBox(std::deque<bool>& answered) : Answered(answered) { Answered.push_back(false); }
  ~OpenBox() { Answered.pop_back(); }
  OpenBox(const OpenBox&) = delete;
  OpenBox& operator=(const OpenBox&) = delete;

 private:
  std::deque<bool>& Answered;
};

}  // namespace

std::string SimulatedDialogs::ShowOpen(const FileDialog& dialog) {
  FileDialogs.push_back(dialog);
  Log.Write("open", dialog.Filter);
  WaitForAnswer();
  if (OpenResults.empty()) return "";
  const std::string result = OpenResults.front();
  OpenResults.pop_front();
  return result;
}

void SimulatedDialogs::Answer() {
  for (auto box = Answered.rbegin(); box != Answered.rend(); ++box) {
    if (*box) continue;
    *box = true;
    Loop.Post([] {});  // The wait tests its condition after an event.
    return;
  }
}

void SimulatedDialogs::ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) {
  Boxes.push_back({body, caption, icon});
  Log.Write("box", InOneLine(caption + ": " + body));
  WaitForAnswer();
}

void SimulatedDialogs::WaitForAnswer() {
  if (AnswerAfterMs == 0) return;
  const OpenBox box(Answered);
  const std::size_t place = Answered.size() - 1;
  if (AnswerAfterMs == kNever) {
    Loop.PumpUntil([this, place] { return Answered[place]; });
    return;
  }
  const std::int64_t answerAtMs = Loop.NowMs() + AnswerAfterMs;
  Loop.Schedule(AnswerAfterMs, [] {});
  Loop.PumpUntil(
      [this, place, answerAtMs] { return Answered[place] || Loop.NowMs() >= answerAtMs; });
}

}  // namespace marlex
