// What a byte from the amplifier does in each state of the desk, as tables.
//
//   byte     what arrives; two bytes come two seconds apart
//   sounds   immediately after the last byte
//   wave     slider of the wave line at that moment, 0 the loudest
//   muted    lines muted at that moment
//   on       enabled at that moment: T the tick, P K S play, skip and stop, C the call, Z the
//            music's zones
//   sent     since the first byte, with the millisecond
//   row      of 12:01, in the end: played in full, cut off, or lost
//   at last  what sounds in the end

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "schedule/spot_desk.h"

namespace marlex {
namespace {

constexpr int kSecondByteAfterMs = 2000;
constexpr int kAtLastMs = 40'000;

/// A row that waits for the music break; the first song ends 31 seconds into the journal.
DeskOptions AtBreak() {
  return {.Music = {{"march", 58'000}, {"waltz", 600'000}},
          .Sequences = {{.Messages = "welcome,closing", .Zones = "003000", .Timer = "Between"}}};
}

/// A situation of a desk in which a byte may arrive.
struct Moment {
  std::string Name;
  int AtMs = 0;
  SpotDesk::MusicAtStart AtStart = SpotDesk::MusicAtStart::Plays;
  DeskOptions Options = {};
};

const Moment kIdle{"idle", 500, SpotDesk::MusicAtStart::IsSilent};
const Moment kMusic{"music", 500};
const Moment kFadeDown{"fade down", 1250};
const Moment kMessage{"message", 3000};
const Moment kMessageAlone{"no music", 2000, SpotDesk::MusicAtStart::IsSilent};
const Moment kFadeUp{"fade up", 6900};
const Moment kWaiting{"waiting", 5000, SpotDesk::MusicAtStart::Plays, AtBreak()};
const Moment kBreak{"break", 32'000, SpotDesk::MusicAtStart::Plays, AtBreak()};

const std::vector<Moment> kMoments{kIdle,         kMusic,  kFadeDown, kMessage,
                                   kMessageAlone, kFadeUp, kWaiting,  kBreak};

std::string OrDash(const std::string& text) { return text.empty() ? "-" : text; }

/// A desk that describes itself in the words of the tables.
class TableDesk : public SpotDesk {
 public:
  TableDesk(const Moment& moment, const std::string& own)
      : SpotDesk(WithPriority(moment.Options, own), moment.AtStart) {
    AdvanceTo(moment.AtMs);
    SentBefore = Pc.Serial.Sent().size();
  }

  /// Delivers the bytes and returns all the cells that follow from them.
  std::string OutcomeOf(const std::vector<int>& bytes) {
    for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
      if (byte > 0) Advance(kSecondByteAfterMs);
      Status(bytes[byte]);
    }
    const std::string atOnce = Sound() + " | " + std::to_string(WaveSlider()) + " | " +
                               OrDash(MutedLines()) + " | " + LettersOfWhatIsOn() + " | ";
    AdvanceTo(kAtLastMs);
    const bool audible = Sound() != "-";
    return atOnce + OrDash(SentSince()) + " | " + FateOfTheRow() + " | " + Sound() +
           (audible ? " " + std::to_string(WaveSlider()) : "");
  }

 private:
  static DeskOptions WithPriority(DeskOptions options, const std::string& own) {
    options.Priority = own;
    return options;
  }

  /// "song march.mp3 at 20000" as "march".
  std::string Sound() {
    const std::string heard = Heard();
    if (heard == "silence") return "-";
    const auto start = heard.find(' ') + 1;
    return heard.substr(start, heard.find('.') - start);
  }

  std::string MutedLines() {
    const std::string lines = Muted();
    if (lines == "master wave microphone") return "all three";
    return lines.substr(0, lines.find("rophone"));
  }

  std::string LettersOfWhatIsOn() {
    const auto letter = [](bool on, char name) { return on ? name : '.'; };
    std::string letters{letter(Sys->TheFrmPlayers.tmrMessage.Enabled, 'T'),
                        letter(Enabled("cmdPlay"), 'P'), letter(Enabled("cmdSkip"), 'K'),
                        letter(Enabled("cmdStop"), 'S'), letter(Enabled("cmdCall"), 'C')};
    for (int zone = 1; zone < kZones; ++zone)
      EXPECT_EQ(Main().cmdMusicZones[zone].Enabled, Main().cmdMusicZones[0].Enabled);
    return letters + letter(Main().cmdMusicZones[0].Enabled, 'Z');
  }

  std::string SentSince() {
    std::string sent;
    for (std::size_t byte = SentBefore; byte < Pc.Serial.Sent().size(); ++byte) {
      const auto& [atMs, value] = Pc.Serial.Sent()[byte];
      sent +=
          (sent.empty() ? "" : " ") + std::to_string(atMs - BeginsMs) + ":" + std::to_string(value);
    }
    return sent;
  }

  std::string FateOfTheRow() {
    std::string events;
    for (const std::string& line : Pc.Journal.Lines()) {
      const auto place = line.find(" wav ");
      if (place != std::string::npos) events += line.substr(place + 5) + ",";
    }
    if (events.empty()) return "lost";
    if (events == "play welcome.wav,stop welcome.wav,refuse ,") return "cut";
    if (events == "play welcome.wav,end welcome.wav,play closing.wav,end closing.wav,")
      return "played";
    return events;
  }

  std::int64_t BeginsMs = Pc.Loop.NowMs();
  std::size_t SentBefore = 0;
};

std::vector<std::string> Cells(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream parts(line);
  for (std::string part; std::getline(parts, part, '|');) {
    const auto first = part.find_first_not_of(' ');
    if (first == std::string::npos) continue;
    cells.push_back(part.substr(first, part.find_last_not_of(' ') - first + 1));
  }
  return cells;
}

/// One row of a table: the bytes that arrive, and what is expected.
struct Row {
  std::vector<int> Bytes;
  std::string Expected;
};

/// Rows of a table without its heading.
std::vector<Row> RowsOf(const std::string& table) {
  std::vector<Row> rows;
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    const std::vector<std::string> cells = Cells(line);
    if (cells.empty() || cells.front() == "byte") continue;
    Row row;
    std::istringstream bytes(cells.front());
    for (int byte = 0; bytes >> byte;) row.Bytes.push_back(byte);
    for (std::size_t cell = 1; cell < cells.size(); ++cell)
      row.Expected += (cell > 1 ? " | " : "") + cells[cell];
    rows.push_back(row);
  }
  return rows;
}

std::string Title(const Moment& moment, const std::string& own, const std::vector<int>& bytes) {
  std::string title = moment.Name + ", own level " + own + ", byte";
  for (const int byte : bytes) title += " " + std::to_string(byte);
  return title;
}

/// Every row of the table, of which there must be `rows`.
void ExpectTable(const Moment& moment, const std::string& own, std::size_t rows,
                 const std::string& table) {
  const std::vector<Row> expected = RowsOf(table);
  EXPECT_EQ(expected.size(), rows);
  for (const Row& row : expected) {
    EXPECT_EQ(TableDesk(moment, own).OutcomeOf(row.Bytes), row.Expected)
        << Title(moment, own, row.Bytes);
  }
}

TEST(PriorityTable, ByteBeforeTheMinuteOfARowWithNothingOn) {
  ExpectTable(kIdle, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | -       | 20000 | wave mic   | TP..CZ | 1200:68 6000:0            | played | -
64     | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
128    | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
192    | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
)");
  ExpectTable(kIdle, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | -       | 20000 | wave mic   | TP..CZ | 1200:132 6000:0           | played | -
64     | -       | 20000 | all three  | TP..CZ | 1000:0 1200:132 6000:0    | played | -
128    | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
192    | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
)");
}

TEST(PriorityTable, ByteBeforeTheMinuteOfARowWithMusic) {
  ExpectTable(kMusic, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 20000 | mic        | TPKSCZ | 900:67 1729:68 6729:67    | played | march 20000
64     | march   | 20000 | mic        | TPKSCZ | -                         | lost   | march 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
  ExpectTable(kMusic, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 20000 | mic        | TPKSCZ | 900:131 1729:132 6729:131 | played | march 20000
64     | march   | 20000 | mic        | TPKSCZ | 1529:0 1729:132 6729:131  | played | march 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
}

TEST(PriorityTable, ByteInTheFadeDown) {
  ExpectTable(kFadeDown, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 40000 | mic        | ....CZ | 1650:68 6729:67           | played | march 20000
64     | march   | 40000 | mic        | ....CZ | 1529:0 1729:68 6729:67    | played | march 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
  ExpectTable(kFadeDown, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 40000 | mic        | ....CZ | 1650:132 6729:131         | played | march 20000
64     | march   | 40000 | mic        | ....CZ | 1529:0 1729:132 6729:131  | played | march 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
}

TEST(PriorityTable, ByteInAMessageThatHasPausedTheMusic) {
  ExpectTable(kMessage, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | welcome | 10000 | mic        | ....C. | 6729:67                   | played | march 20000
64     | welcome | 10000 | mic        | ....C. | 6729:67                   | played | march 20000
128    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
  ExpectTable(kMessage, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | welcome | 10000 | mic        | ....C. | 6729:131                  | played | march 20000
64     | welcome | 10000 | mic        | ....C. | 6729:131                  | played | march 20000
128    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
}

TEST(PriorityTable, ByteInAMessageWithoutMusic) {
  ExpectTable(kMessageAlone, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | welcome | 10000 | mic        | ....C. | 6000:0                    | played | -
64     | welcome | 10000 | mic        | ....C. | 6000:0                    | played | -
128    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
  ExpectTable(kMessageAlone, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | welcome | 10000 | mic        | ....C. | 6000:0                    | played | -
64     | welcome | 10000 | mic        | ....C. | 6000:0                    | played | -
128    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192    | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
}

TEST(PriorityTable, ByteInTheFadeUp) {
  ExpectTable(kFadeUp, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 33535 | mic        | ....CZ | 7300:67                   | played | march 20000
64     | march   | 33535 | mic        | ....CZ | -                         | played | march 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | played | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | played | -
)");
  ExpectTable(kFadeUp, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 33535 | mic        | ....CZ | 7300:131                  | played | march 20000
64     | march   | 33535 | mic        | ....CZ | -                         | played | march 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | played | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | played | -
)");
}

/// A takeover discards the waiting messages. Deliberate: the song's end still tries to play them
/// all, and that opens the master, so the next song is heard in the middle of the takeover.
TEST(PriorityTable, ByteWhileARowWaitsForTheSongsEnd) {
  ExpectTable(kWaiting, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 20000 | mic        | .PKSCZ | 5400:67                   | played | waltz 20000
64     | march   | 20000 | mic        | .PKSCZ | -                         | played | waltz 20000
128    | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
192    | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
)");
  ExpectTable(kWaiting, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | march   | 20000 | mic        | .PKSCZ | 5400:131                  | played | waltz 20000
64     | march   | 20000 | mic        | .PKSCZ | -                         | played | waltz 20000
128    | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
192    | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
)");
}

TEST(PriorityTable, ByteInTheMessagesOfTheMusicBreak) {
  ExpectTable(kBreak, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | welcome | 10000 | mic        | .PKSCZ | -                         | played | waltz 20000
64     | welcome | 10000 | mic        | .PKSCZ | -                         | played | waltz 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
)");
  ExpectTable(kBreak, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
0      | welcome | 10000 | mic        | .PKSCZ | -                         | played | waltz 20000
64     | welcome | 10000 | mic        | .PKSCZ | -                         | played | waltz 20000
128    | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
192    | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
)");
}

// The ways back from a call of a higher level: by 0, and by a lower call first.

TEST(PriorityTable, WayBackWithNothingOn) {
  ExpectTable(kIdle, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | -       | 20000 | wave mic   | TP..CZ | -                         | lost   | -
128 64 | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
192 0  | -       | 20000 | wave mic   | TP..CZ | -                         | lost   | -
192 64 | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
)");
  ExpectTable(kIdle, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | -       | 20000 | wave mic   | TP..CZ | -                         | lost   | -
128 64 | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
192 0  | -       | 20000 | wave mic   | TP..CZ | -                         | lost   | -
192 64 | -       | 20000 | all three  | TP..CZ | -                         | lost   | -
)");
}

TEST(PriorityTable, WayBackToMusic) {
  ExpectTable(kMusic, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | TPKSCZ | 2900:67                   | lost   | march 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192 0  | march   | 20000 | mic        | TPKSCZ | 2900:67                   | lost   | march 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
  ExpectTable(kMusic, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | TPKSCZ | 2900:131                  | lost   | march 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192 0  | march   | 20000 | mic        | TPKSCZ | 2900:131                  | lost   | march 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
}

TEST(PriorityTable, WayBackFromTheFadeDown) {
  ExpectTable(kFadeDown, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | TPKSCZ | 3650:67                   | lost   | march 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192 0  | march   | 20000 | mic        | TPKSCZ | 3650:67                   | lost   | march 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
  ExpectTable(kFadeDown, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | TPKSCZ | 3650:131                  | lost   | march 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
192 0  | march   | 20000 | mic        | TPKSCZ | 3650:131                  | lost   | march 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | lost   | -
)");
}

TEST(PriorityTable, WayBackFromAMessageThatHadPausedTheMusic) {
  ExpectTable(kMessage, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
128 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
192 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
  ExpectTable(kMessage, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
128 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
192 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
}

TEST(PriorityTable, WayBackFromAMessageWithoutMusic) {
  ExpectTable(kMessageAlone, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
128 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
192 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
  ExpectTable(kMessageAlone, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
128 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
192 0  | -       | 20000 | mic        | TP..CZ | -                         | cut    | -
192 64 | -       | 20000 | master mic | TP...Z | -                         | cut    | -
)");
}

TEST(PriorityTable, WayBackFromTheFadeUp) {
  ExpectTable(kFadeUp, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | TPKSCZ | 9300:67                   | played | march 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | played | -
192 0  | march   | 20000 | mic        | TPKSCZ | 9300:67                   | played | march 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | played | -
)");
  ExpectTable(kFadeUp, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | TPKSCZ | 9300:131                  | played | march 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | played | -
192 0  | march   | 20000 | mic        | TPKSCZ | 9300:131                  | played | march 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | played | -
)");
}

TEST(PriorityTable, WayBackWhileTheEmptiedRowWaits) {
  ExpectTable(kWaiting, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | .PKSCZ | 7400:67                   | lost   | waltz 20000
128 64 | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
192 0  | march   | 20000 | mic        | .PKSCZ | 7400:67                   | lost   | waltz 20000
192 64 | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
)");
  ExpectTable(kWaiting, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | march   | 20000 | mic        | .PKSCZ | 7400:131                  | lost   | waltz 20000
128 64 | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
192 0  | march   | 20000 | mic        | .PKSCZ | 7400:131                  | lost   | waltz 20000
192 64 | -       | 20000 | master mic | .PKS.Z | -                         | lost   | waltz 20000
)");
}

TEST(PriorityTable, WayBackFromTheMessagesOfTheMusicBreak) {
  ExpectTable(kBreak, "Low", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | waltz   | 20000 | mic        | TPKSCZ | 34400:67                  | cut    | waltz 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
192 0  | waltz   | 20000 | mic        | TPKSCZ | 34400:67                  | cut    | waltz 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
)");
  ExpectTable(kBreak, "High", 4, R"(
byte   | sounds  | wave  | muted      | on     | sent                      | row    | at last
128 0  | waltz   | 20000 | mic        | TPKSCZ | 34400:131                 | cut    | waltz 20000
128 64 | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
192 0  | waltz   | 20000 | mic        | TPKSCZ | 34400:131                 | cut    | waltz 20000
192 64 | -       | 20000 | master mic | TPKS.Z | -                         | cut    | -
)");
}

/// Only the two upper bits of a byte count, whatever its other bits.
TEST(PriorityTable, EveryByteCountsByItsTwoUpperBitsInEveryState) {
  constexpr int kEverySo = 7;  // step between tested bytes when our own level is high
  for (const Moment& moment : kMoments) {
    for (const std::string own : {"Low", "High"}) {
      std::map<int, std::string> known;
      const int step = own == "Low" ? 1 : kEverySo;
      for (int byte = 0; byte < 256; byte += step) {
        const std::string outcome = TableDesk(moment, own).OutcomeOf({byte});
        const std::string& expected = known.emplace(byte & kPriorityBits, outcome).first->second;
        EXPECT_EQ(outcome, expected) << Title(moment, own, {byte});
      }
    }
  }
}

}  // namespace
}  // namespace marlex
