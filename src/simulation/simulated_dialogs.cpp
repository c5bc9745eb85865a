#include "simulation/simulated_dialogs.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace marlex {

namespace {

/// The text on one line, with a bar for each line break.
std::string InOneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    if (c == '\r') continue;
    line += c == '\n' ? '|' : c;
  }
  return line;
}

}  // namespace

void SimulatedDialogs::OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) {
  FileDialogs.push_back(dialog);
  Log.Write(dialog.Save ? "save" : "open", dialog.Filter);
  FileDialogOpened = true;
  AnswerLater([this, onChosen = std::move(onChosen), dialog] {
    FileDialogOpened = false;
    const std::string result = NextOpenResult();
    if (dialog.Save) LastSavePath = result;
    Loop.Post([this, onChosen, dialog, result] {
      if (BeforeChosen) BeforeChosen(dialog, result);
      onChosen(result);
    });
  });
}

std::string SimulatedDialogs::NextOpenResult() {
  if (OpenResults.empty()) return "";
  std::string result = OpenResults.front();
  OpenResults.pop_front();
  return result;
}

void SimulatedDialogs::Answer() {
  const auto top =
      std::find_if(Open.rbegin(), Open.rend(), [](const Box& box) { return !box.Answered; });
  if (top != Open.rend()) Answer(*top);
}

void SimulatedDialogs::Answer(Box& box) {
  box.Answered = true;
  Loop.Post([] {});  // A wait tests its condition only after an event.
  if (!box.OnAnswer) return;
  box.OnAnswer();
  Close(box);
}

void SimulatedDialogs::Reset() {
  Open.clear();
  FileDialogOpened = false;
  ForgetAll();
}

void SimulatedDialogs::ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) {
  Record(body, icon, caption);
  WaitForAnswer();
}

void SimulatedDialogs::OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
                               std::function<void()> onAnswer) {
  Record(body, icon, caption);
  AnswerLater(std::move(onAnswer));
}

void SimulatedDialogs::AnswerLater(std::function<void()> onAnswer) {
  if (AnswerAfterMs == 0) return onAnswer();
  Open.push_back({false, std::move(onAnswer)});
  if (AnswerAfterMs == kNever) return;
  Loop.Schedule(AnswerAfterMs, [this, box = &Open.back()] {
    const bool open = std::any_of(Open.begin(), Open.end(), [&](Box& b) { return &b == box; });
    if (open) Answer(*box);
  });
}

void SimulatedDialogs::Record(const std::string& body, BoxIcon icon, const std::string& caption) {
  Boxes.push_back({body, caption, icon});
  Log.Write("box", InOneLine(caption + ": " + body));
}

void SimulatedDialogs::WaitForAnswer() {
  if (AnswerAfterMs == 0) return;
  Box& box = Open.emplace_back();
  const std::int64_t answerAtMs = Loop.NowMs() + AnswerAfterMs;
  const bool never = AnswerAfterMs == kNever;
  if (!never) Loop.Schedule(AnswerAfterMs, [] {});
  try {
    Loop.PumpUntil([&] { return box.Answered || (!never && Loop.NowMs() >= answerAtMs); });
  } catch (...) {
    Close(box);
    throw;
  }
  Close(box);
}

void SimulatedDialogs::Close(const Box& box) {
  Open.remove_if([&box](const Box& open) { return &open == &box; });
}

}  // namespace marlex
