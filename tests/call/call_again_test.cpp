// A second click on the call button while the first call is ending leaves nothing behind, whenever
// it comes.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "call/call_desk.h"

namespace marlex {
namespace {

constexpr int kReleaseMs = 4000;  // all cases are speaking by then
constexpr int kStepMs = 10;
constexpr int kLongestEndMs = 2600;  // post-chime and slow fade, and a little more

struct Case {
  const char* FadeTime;
  const char* PreChime;
  const char* PostChime;
};

constexpr Case kCases[] = {
    {"Fast", "", ""}, {"Fast", "chime", ""}, {"Fast", "", "gong"}, {"Fast", "chime", "gong"},
    {"Slow", "", ""}, {"Slow", "chime", ""}, {"Slow", "", "gong"}, {"Slow", "chime", "gong"},
};

/// A desk whose call over music has just been released, with a row at 12:02.
class ReleasedDesk : public CallDesk {
 public:
  explicit ReleasedDesk(const Case& with) : CallDesk(Options(with)) {
    PressAt(0);
    ReleaseAt(kReleaseMs);
  }

 private:
  static DeskOptions Options(const Case& with) {
    return {.Sequences = {{.Minutes = "02"}},
            .FadeTime = with.FadeTime,
            .PreChime = with.PreChime,
            .PostChime = with.PostChime,
            .Now = {2024, 1, 1, 12, 1, 0}};
  }
};

/// What is wrong with the desk after all buttons have been released; empty if nothing is.
std::string Trouble(CallDesk& desk) {
  const auto atRest = [&desk](const std::string& when) -> std::string {
    if (desk.State().CallActive) return "a call is on " + when;
    if (desk.Station() != "Call, lamps off") return desk.Station() + " " + when;
    if (desk.Alive() != "tick cmdPlay cmdSkip cmdStop") return desk.Alive() + " " + when;
    if (desk.Heard() != "song march.mp3 at 20000") return desk.Heard() + " " + when;
    return "";
  };
  desk.Advance(6000);
  std::string trouble = atRest("after the second click");
  if (!trouble.empty()) return trouble;
  desk.Press("cmdCall");
  desk.Advance(4000);
  if (desk.Station() != "Speak, lamps green, speaks") return "the next call: " + desk.Station();
  desk.Release("cmdCall");
  desk.Advance(6000);
  trouble = atRest("after the next call");
  if (!trouble.empty()) return trouble;
  desk.RunTo(12, 2);
  desk.Pc.Loop.RunUntil([&desk] { return desk.State().MessagePlaying; }, 5000);
  if (desk.Heard() != "wav welcome.wav at 10000") return "the next row: " + desk.Heard();
  desk.Advance(10'000);
  return atRest("after the next row");
}

/// Each moment is tested with one click, whose length changes from moment to moment;
/// MARLEX_SWEEP=whole tests each moment with every length.
TEST(CallAgain, AtAnyMomentOfTheWayBackLeavesNothingBehind) {
  const std::vector<int> lengthsMs = {0, 10, 150, 700, 2000};
  const bool whole = std::getenv("MARLEX_SWEEP") != nullptr;
  std::size_t turn = 0;
  for (const Case& with : kCases) {
    for (int pressMs = 0; pressMs <= kLongestEndMs; pressMs += kStepMs) {
      const std::vector<int> heldMs = {lengthsMs[turn++ % lengthsMs.size()]};
      for (const int held : whole ? lengthsMs : heldMs) {
        ReleasedDesk desk(with);
        desk.PressAt(kReleaseMs + pressMs);
        desk.ReleaseAt(kReleaseMs + pressMs + held);
        ASSERT_EQ(Trouble(desk), "")
            << with.FadeTime << " [" << with.PreChime << "] [" << with.PostChime << "] press "
            << pressMs << " ms after the release, held " << held << " ms";
      }
    }
  }
}

}  // namespace
}  // namespace marlex
