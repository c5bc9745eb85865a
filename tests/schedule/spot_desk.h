#pragma once

#include <string>
#include <utility>

#include "desk/desk.h"

namespace marlex {

/// A desk in the last second of the minute in which it started, with a fresh journal. Unless the
/// test chooses otherwise it is 12:00:59, a song plays into zones 1 and 2, and a row at 12:01
/// announces two messages into zone 3. The tick sees the row after 1000 ms.
class SpotDesk : public Desk {
 public:
  enum class MusicAtStart { Plays, IsSilent };

  // Milliseconds of the journal, with a desk's default levels and lengths.
  static constexpr int kDue = 1000;
  static constexpr int kFadedDown = 1529;
  static constexpr int kFirstMessageEnds = 4529;
  static constexpr int kSecondMessageEnds = 6529;
  static constexpr int kFadedUp = 7104;

  explicit SpotDesk(DeskOptions options = {}, MusicAtStart music = MusicAtStart::Plays)
      : Desk(WithSpot(std::move(options))) {
    if (music == MusicAtStart::Plays) Click("cmdPlay");
    const LocalTime now = Pc.Clock.Now();
    RunTo(now.Hour, now.Minute, 59);
    Pc.Journal.Clear();
    StartMs = Pc.Loop.NowMs();
  }

  void AdvanceTo(int journalMs) {
    Advance(static_cast<int>(StartMs + journalMs - Pc.Loop.NowMs()));
  }

  /// Which of the tick and the transport buttons are enabled.
  std::string Alive() {
    std::string names = Sys->TheFrmPlayers.tmrMessage.Enabled ? "tick" : "";
    for (const char* button : {"cmdPlay", "cmdSkip", "cmdStop"}) {
      if (Enabled(button)) names += (names.empty() ? "" : " ") + std::string(button);
    }
    return names;
  }

  /// Background of a row's five cells, a letter each: white, navy, green, red.
  std::string Paint(int row) {
    std::string letters;
    for (int column = 0; column < Grid::kColumns; ++column) {
      const Color color = CellColor(row, column);
      letters += color == kNavy ? 'n' : color == kGreen ? 'g' : color == kRed ? 'r' : 'w';
    }
    return letters;
  }

  /// Which of the lines are muted, as "master", "wave", "microphone".
  std::string Muted() {
    std::string lines;
    const auto add = [&](int line, const std::string& name) {
      if (MuteCheck(line)) lines += (lines.empty() ? "" : " ") + name;
    };
    add(0, "master");
    add(Sys->Mixer.WaveLine, "wave");
    if (Sys->Mixer.MicLine != 0) add(Sys->Mixer.MicLine, "microphone");
    return lines;
  }

  int MusicState() { return Pc.Song.PlayState(); }

 private:
  static DeskOptions WithSpot(DeskOptions options) {
    if (options.Music.empty()) options.Music = {{"march"}, {"waltz"}};
    if (options.Sequences.empty()) {
      options.Sequences = {{.Messages = "welcome,closing", .Zones = "003000"}};
    }
    return options;
  }

  std::int64_t StartMs = 0;
};

}  // namespace marlex
