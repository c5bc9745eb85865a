#include "scenario/story.h"

#include <sstream>

namespace marlex {
namespace {

std::string Digits(std::int64_t number, std::size_t places) {
  const std::string digits = std::to_string(number);
  return std::string(places - std::min(places, digits.size()), '0') + digits;
}

std::string ClockText(std::int64_t ms) {
  constexpr std::int64_t kHourMs = 3'600'000;
  return Digits(ms / kHourMs % 24, 2) + ":" + Digits(ms / 60'000 % 60, 2) + ":" +
         Digits(ms / 1000 % 60, 2) + "." + Digits(ms % 1000, 3);
}

}  // namespace

Story::Story(const DeskOptions& options) : Desk(options) { Begin(); }

void Story::Begin() {
  const LocalTime now = Pc.Clock.Now();
  BeganAtMs = ((now.Hour * 60 + now.Minute) * 60 + now.Second) * 1000 + Pc.Loop.NowMs() % 1000;
  Pc.Journal.Clear();
}

std::string Story::Transcript() const {
  std::string transcript;
  std::istringstream journal(Pc.Journal.Text());
  std::int64_t ms = 0;
  for (std::string line; journal >> ms && std::getline(journal, line);)
    transcript += ClockText(BeganAtMs + ms) + line + "\n";
  return transcript;
}

}  // namespace marlex
