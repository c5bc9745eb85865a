// What the OK of the settings dialog does, in order.

#include <gtest/gtest.h>

#include "core/settings_desk.h"

namespace marlex {
namespace {

/// A desk whose journal also records what the windows show.
struct OrderDesk : SettingsDesk {
  explicit OrderDesk(DeskOptions options)
      : SettingsDesk(WithRow(std::move(options)), With("Chime selection", "PostChime", "dong")) {}

  /// Begins the journal again, now.
  void Record() {
    TakeJournal();
    Pc.Journal.Only({"write", "serial", "show"});
    Watch(Main().frCall, [this] { return Line("frCall", Main().frCall.Visible); });
    Watch(Main().frRouting, [this] { return Line("frRouting", Main().frRouting.Visible); });
    Watch(Main().grdSchedule, [this] {
      return Main().grdSchedule.Rows() > 1 ? Cell(1, kTimeColumn).substr(0, 5) : "";
    });
    Watch(Main().lblZoneName[2], [this] { return Main().lblZoneName[2].Caption.Get(); });
    Watch(TheFrmSettings(), [this] { return Line("frmSettings", TheFrmSettings().Visible); });
    Watch(Main(), [this] { return "frmMain " + std::to_string(Main().ShowCount); });
  }

 private:
  static DeskOptions WithRow(DeskOptions options) {
    options.Sequences = {{}};
    return options;
  }
  static std::string Line(const std::string& name, bool shown) {
    return name + (shown ? " comes" : " goes");
  }

  /// Records what a control, or a window, shows, each time that it changes.
  template <class T>
  void Watch(T& shown, const std::function<std::string()>& look) {
    shown.Watcher = [this, look, before = look(), next = shown.Watcher]() mutable {
      if (next) next();
      const std::string now = look();
      if (now == before) return;
      before = now;
      if (!now.empty()) Pc.Journal.Write("show", now);
    };
  }
};

/// Other names and times for everything that the OK takes over.
void ChangeAll(OrderDesk& desk) {
  desk.Type(desk.TheFrmSettings().txtZoneName[2], "Gate");
  desk.Click("optPriority_1");
  desk.Click("optSlow");
  desk.Click("optCom_1");
  desk.Click("chkPostChime");
  desk.Pc.Profiles.WriteString("Schedule", "Hour(s)", "13", "/app/spot.sch");
}

constexpr const char* kDirectoriesAndNames =
    "0 write Tolvo.ini [Selected paths] Music directory=/music/\n"
    "0 write Tolvo.ini [Selected paths] Message directory=/messages/\n"
    "0 write Tolvo.ini [Zone names] Zone:1=Hall\n"
    "0 write Tolvo.ini [Zone names] Zone:2=Yard\n"
    "0 write Tolvo.ini [Zone names] Zone:3=Gate\n"
    "0 write Tolvo.ini [Zone names] Zone:4=Zone 4\n"
    "0 write Tolvo.ini [Zone names] Zone:5=Zone 5\n"
    "0 write Tolvo.ini [Zone names] Zone:6=Zone 6\n";

/// The music's level is the last of the volumes; the dialog closes before the main window appears.
constexpr const char* kBehindTheAmplifier =
    "0 write Tolvo.ini [Priority level] Priority=High\n"
    "0 write Tolvo.ini [Volume] Fade time=Slow\n"
    "0 write Tolvo.ini [Used com port] Com port=2\n"
    "0 write Tolvo.ini [Chime selection] PreChime=\n"
    "0 write Tolvo.ini [Chime selection] PostChime=\n"
    "0 write Tolvo.ini [Volume] Master volume=5000\n"
    "0 write Tolvo.ini [Volume] Message volume=10000\n"
    "0 write Tolvo.ini [Volume] Micro volume=15000\n"
    "0 write Tolvo.ini [Volume] Music volume=20000\n"
    "0 show 13:01\n"
    "0 show Gate\n"
    "0 show frmSettings goes\n"
    "0 show frmMain 2\n";

TEST(SettingsOrder, OfTheOkThatBringsTheRouter) {
  OrderDesk desk({.Router = false});
  desk.Open();
  desk.Click("optTolvo_0");
  ChangeAll(desk);
  desk.Record();
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Journal(), std::string(kDirectoriesAndNames) +
                                "0 serial open 1\n"
                                "0 show frCall goes\n"
                                "0 show frRouting comes\n"
                                "0 write Tolvo.ini [Selected type] QRT4410/20=Yes\n" +
                                kBehindTheAmplifier);
}

TEST(SettingsOrder, OfTheOkThatBringsTheOtherAmplifier) {
  OrderDesk desk({.Router = true});
  desk.Open();
  desk.Click("optTolvo_1");
  ChangeAll(desk);
  desk.Record();
  desk.Click("cmdOK");
  EXPECT_EQ(desk.Journal(), std::string(kDirectoriesAndNames) +
                                "0 serial close\n"
                                "0 show frCall comes\n"
                                "0 show frRouting goes\n"
                                "0 write Tolvo.ini [Selected type] QRT4410/20=No\n" +
                                kBehindTheAmplifier);
}

}  // namespace
}  // namespace marlex
