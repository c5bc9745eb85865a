#include <gtest/gtest.h>

#include "scenario/story.h"

namespace marlex {
namespace {

/// A row at 12:01 and one at 12:05, while a song plays.
DeskOptions TwoRows() {
  return {.Music = {{"march"}, {"waltz"}},
          .Sequences = {{.Messages = "welcome,closing", .Minutes = "01,05", .Zones = "003000"}},
          .Now = {2024, 1, 1, 12, 0, 50}};
}

/// A desk that stops after a given event of the announcement of 12:01. Events are counted from the
/// start of the row's minute.
class Interrupted : public Story {
 public:
  explicit Interrupted(const DeskOptions& options) : Story(options) {
    Click("cmdPlay");
    RunTo(12, 1);
    Begin();
    Pc.Loop.AfterEvent = [this] { ++Events; };
  }

  void RunToEvent(int event) {
    Pc.Loop.RunUntil([&] { return Events >= event; }, kMinuteMs);
    Pc.Loop.AfterEvent = nullptr;
  }

  /// Number of events until the announcement is over and its last byte has been sent.
  static int CountEvents(const DeskOptions& options) {
    Interrupted desk(options);
    desk.RunTo(12, 1, 8);
    EXPECT_TRUE(desk.Transcript().ends_with("send 67\n")) << desk.Transcript();
    return desk.Events;
  }

  /// The state of the sound card, the labels and the files.
  std::string State() {
    const auto line = [this](const std::string& name, std::uint32_t type) {
      return name + " " + std::to_string(FrmMxr::kSilent - Pc.Mixer.Level(type)) +
             (Pc.Mixer.Muted(type) ? " muted, " : ", ");
    };
    return line("master", kComponentSpeakers) + line("wave", kComponentWaveOut) +
           line("microphone", kComponentMicrophone) + "zones " + LitZones() + ", song " +
           Setting("Last played", "Last song", kPlaylist) + ", " + Heard();
  }

  /// The journal of the announcement of 12:05, starting at its tick.
  std::string NextAnnouncement() {
    const auto begun = [this] { return !Sys->TheFrmPlayers.tmrMessage.Enabled; };
    RunTo(12, 4, 59);
    Pc.Loop.RunUntil(begun, kMinuteMs);
    Pc.Journal.Clear();
    Advance(kMinuteMs);
    return Pc.Journal.Text();
  }

 private:
  static constexpr int kMinuteMs = 60'000;
  int Events = 0;
};

constexpr const char* kWholeAnnouncement =
    "529 song pause\n"
    "529 wav play welcome.wav\n"
    "729 send 68\n"
    "3529 wav end welcome.wav\n"
    "3529 wav play closing.wav\n"
    "5529 wav end closing.wav\n"
    "5529 song resume march.mp3\n"
    "5729 send 67\n";

TEST(AnyMoment, OfAnAnnouncementMayBeThatOfAPowerCut) {
  const int events = Interrupted::CountEvents(TwoRows());
  ASSERT_GT(events, 100);
  for (int event = 1; event <= events; ++event) {
    Interrupted desk(TwoRows());
    const std::string ini = *desk.Pc.Disk.Read(Desk::kIni);
    const std::string playlist = *desk.Pc.Disk.Read(Desk::kPlaylist);
    desk.RunToEvent(event);
    desk.Restart();
    ASSERT_EQ(desk.State(),
              "master 5000 muted, wave 20000 muted, microphone 15000 muted, zones 110000, song 0, "
              "silence")
        << event;
    ASSERT_EQ(*desk.Pc.Disk.Read(Desk::kIni), ini) << event;
    ASSERT_EQ(*desk.Pc.Disk.Read(Desk::kPlaylist), playlist) << event;
    desk.RunTo(12, 3);
    desk.Click("cmdPlay");
    desk.RunTo(12, 4);
    ASSERT_EQ(desk.State(),
              "master 5000, wave 20000, microphone 15000 muted, zones 110000, song 0, song "
              "march.mp3 at 20000")
        << event;
    ASSERT_EQ(desk.NextAnnouncement(), kWholeAnnouncement) << event;
  }
}

TEST(AnyMoment, WithAnAutostartMayBeThatOfAPowerCut) {
  DeskOptions options = TwoRows();
  options.Autostart = "True";
  options.LastSong = "1";
  const int events = Interrupted::CountEvents(options);
  for (int event = 1; event <= events; ++event) {
    Interrupted desk(options);
    desk.RunToEvent(event);
    desk.Restart();
    ASSERT_EQ(desk.State(),
              "master 5000, wave 20000, microphone 15000 muted, zones 110000, song 1, song "
              "waltz.mp3 at 20000")
        << event;
    desk.Pc.Journal.Clear();
    desk.Advance(200);
    ASSERT_EQ(desk.Journal(), "200 send 67\n") << event;
  }
}

TEST(AnyMoment, OfAnAnnouncementMayBeThatOfTheExitAndTheZonesAreFree) {
  const int events = Interrupted::CountEvents(TwoRows());
  for (int event = 1; event <= events; ++event) {
    Interrupted desk(TwoRows());
    desk.RunToEvent(event);
    desk.Pc.Journal.Clear();
    desk.Click("mnuExit");
    const std::string journal = desk.Journal();
    ASSERT_TRUE(journal.ends_with("0 send 0\n0 serial close\n0 process ends\n")) << event << "\n"
                                                                                 << journal;
    ASSERT_EQ(desk.Heard(), "silence");
  }
}

TEST(AnyMoment, OfAnAnnouncementMayBeThatOfATakeover) {
  const int events = Interrupted::CountEvents(TwoRows());
  for (int event = 1; event <= events; ++event) {
    Interrupted desk(TwoRows());
    desk.RunToEvent(event);
    desk.Status(192);
    desk.Advance(5000);
    ASSERT_EQ(desk.Heard(), "silence") << event;
    desk.Status(0);
    desk.Advance(1000);
    const std::string music =
        desk.Pc.Song.PlayState() == kPlaying ? "song march.mp3 at 20000" : "silence";
    ASSERT_EQ(desk.State(),
              "master 5000, wave 20000, microphone 15000 muted, zones 110000, song 0, " + music)
        << event;
    desk.RunTo(12, 3);
    desk.Click("cmdStop");
    desk.Click("cmdPlay");
    ASSERT_EQ(desk.NextAnnouncement(), kWholeAnnouncement) << event;
  }
}

}  // namespace
}  // namespace marlex
