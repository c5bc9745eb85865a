// What the editors save on a real disk, and what happens when the disk refuses.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>

#include "desktop/windows/shop_desk.h"

namespace marlex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOld = "[Schedule]\r\nHour(s)=1\r\n[Playlist]\r\nSong:1=old\r\n";

/// A way in which a disk refuses a file, and how to undo it.
struct Refusal {
  const char* Name;
  std::function<void(const std::string& file)> Begin;
  std::function<void(const std::string& file)> End;
};

void PrintTo(const Refusal& refusal, std::ostream* out) { *out << refusal.Name; }

/// The largest file that the process may write, as on a disk with no more space than that.
void LimitFiles(rlim_t bytes) {
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  limit.rlim_cur = std::min(bytes, limit.rlim_max);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

const std::vector<Refusal> kRefusals = {
    {"protected", [](const std::string& file) { ::chmod(file.c_str(), 0444); },
     [](const std::string& file) { ::chmod(file.c_str(), 0644); }},
    {"full",
     [](const std::string&) {
       std::signal(SIGXFSZ, SIG_IGN);
       LimitFiles(20);
     },
     [](const std::string&) {
       LimitFiles(RLIM_INFINITY);
       std::signal(SIGXFSZ, SIG_DFL);
     }},
    {"a directory of that name",
     [](const std::string& file) {
       fs::remove(file);
       fs::create_directory(file);
     },
     [](const std::string& file) { fs::remove(file); }}};

/// A desk whose own files are on the real disk.
class EditorsOnDisk : public testing::TestWithParam<Refusal> {
 protected:
  std::string File(const std::string& name) const { return Folder.Path(name); }

  /// Selects the menu item and answers its dialog.
  void Save(QWidget& window, const std::string& name) {
    Shop.Pc.Dialogs.OpenResults = {File(name)};
    Shop.Choose(window, "mnuSave");
  }

  /// The content of a file, and the number of entries in its folder.
  std::string Look(const std::string& name) const {
    return (fs::is_regular_file(File(name)) ? Folder.Read(name) : "no file") + " of " +
           std::to_string(Folder.Entries());
  }

  /// Saves while the disk refuses, and returns the box that appears. The old file must be
  /// unchanged, with nothing next to it.
  std::string SaveRefused(QWidget& window, const std::string& name) {
    Folder.Write(name, kOld);
    GetParam().Begin(File(name));
    const std::string before = Look(name);
    Save(window, name);
    Shop.Advance(2000);
    EXPECT_EQ(Look(name), before);
    GetParam().End(File(name));
    if (Shop.Pc.Dialogs.Boxes.empty()) return "";
    const auto& box = Shop.Pc.Dialogs.Boxes.back();
    EXPECT_EQ(box.Icon, BoxIcon::Critical);
    return box.Caption + ": " + box.Body;
  }

  ShopDesk Shop;
  test::TemporaryDirectory& Folder = Shop.Place;
  WavWindow& Schedule = Shop.Sys.TheWindows.TheWavWindow;
  FrmPlaylist& Playlist = Shop.Sys.TheWindows.frmPlaylist;
};

INSTANTIATE_TEST_SUITE_P(Refusals, EditorsOnDisk, testing::ValuesIn(kRefusals),
                         [](const auto& refusal) {
                           std::string name = refusal.param.Name;
                           std::replace(name.begin(), name.end(), ' ', '_');
                           return name;
                         });

TEST_P(EditorsOnDisk, ASequenceThatCannotBeWrittenIsReportedAndCanBeSavedLater) {
  Shop.Choose(Shop.Screen.Main(), "mnuSchedule");
  QWidget& window = Shop.Screen.ScheduleEditor();
  Schedule.AvailWavs.SetListIndex(0);
  Schedule.txtHours.Text = "8-10";
  Schedule.txtMinutes.Text = "30";
  Schedule.WkDays[0].Value = 1;
  Schedule.cmdZone[1].Value = true;
  EXPECT_EQ(SaveRefused(window, "new.sch"), "Error: The file cannot be saved: " + File("new.sch"));
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(Schedule.txtHours.Text.Get() + Schedule.txtMinutes.Text.Get(), "8-1030");
  EXPECT_EQ(Schedule.SelectedWavs.ListCount() + Schedule.WkDays[0].Value, 2);
  fs::remove(File("new.sch"));
  Save(window, "new.sch");
  Shop.Advance(500);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(Folder.Read("new.sch"),
            "[Schedule]\r\nMessage(s)=closing\r\nHour(s)=8-10\r\nMinute(s)=30\r\n"
            "Weekday(s)=1000000\r\nZone(s)=020000\r\nTimer=Exact\r\n");
}

TEST_P(EditorsOnDisk, APlaylistThatCannotBeWrittenIsReportedAndCanBeSavedLater) {
  Shop.Choose(Shop.Screen.Main(), "mnuPlaylist");
  QWidget& window = Shop.Screen.Playlist();
  Shop.PressKey(Shop.Find<QPushButton>(window, "cmdSelectAll"), Qt::Key_Space);
  EXPECT_EQ(SaveRefused(window, "new.lst"), "Error: The file cannot be saved: " + File("new.lst"));
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(Playlist.SelectedMP3s.ListCount(), 2);
  Save(window, "new.lst");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(Folder.Read("new.lst"),
            "[Last played]\r\nLast song=0\r\n[Playlist]\r\nSong:1=march\r\nSong:2=waltz\r\n"
            "[Background music]\r\nStart time=\r\nStop time=\r\nWeekdays=0000000\r\n"
            "Autostart=True\r\n");
}

}  // namespace
}  // namespace marlex
