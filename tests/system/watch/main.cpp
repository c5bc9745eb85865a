// marlex_watch PROGRAM AMPLIFIER INSTALLATION OUTPUT_FOLDER: runs the program where there is no
// display and no sound, beside an amplifier unless the installation has one. Reports what happens,
// saves pictures and a recording, and ends after the first announcement.

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <thread>

#include "places.h"
#include "reporter.h"
#include "sound/wait.h"
#include "system/stage/signals.h"
#include "system/stage/stage.h"

namespace marlex::watch {
namespace {

constexpr const char* kStart =
    "2031-05-05 08:59:44";  // a Monday; the sample's first row is due at 09:00
constexpr double kLimitSeconds = 90;
constexpr double kMusicAfterwardsSeconds = 3;
constexpr double kRoutingSeconds = 0.5;  // until the amplifier has the zones of an announcement

/// Follows the first announcement from its row turning green to the return of the music.
class FirstAnnouncement {
 public:
  explicit FirstAnnouncement(const stage::Stage& watched) : Watched(watched) {}

  bool IsPlaying() const {
    for (int row = 1; row < kMostRows; ++row) {
      std::string cell = "cell " + std::to_string(row) + " 0 colour";
      if (Watched.Window->Read("frmMain.grdSchedule", cell) == kGreen) return true;
    }
    return false;
  }

  /// The play button is enabled again once the whole sequence is over, fades included.
  bool IsOver() {
    HasPlayed = HasPlayed || IsPlaying();
    return HasPlayed && !IsPlaying() && Watched.Window->Read("frmMain.cmdPlay", "enabled") == "yes";
  }

 private:
  static constexpr int kMostRows = 64;
  const stage::Stage& Watched;
  bool HasPlayed = false;
};

/// Keeps the reporter looking until the condition holds; false when the program ended or the limit
/// passed first.
bool Watch(stage::Stage& desk, Reporter& reporter, const std::function<bool()>& condition,
           double limit) {
  constexpr std::chrono::milliseconds kBetweenLooks{20};
  double end = stage::Now() + limit;
  while (!condition()) {
    if (stage::Now() > end || !desk.Program->IsRunning()) return false;
    reporter.Look();
    std::this_thread::sleep_for(kBetweenLooks);
  }
  reporter.Look();
  return true;
}

/// Exits by the menu, as the operator would.
void Leave(stage::Stage& desk, Reporter& reporter) {
  constexpr double kExitLimitSeconds = 10;
  desk.Click("mnuFile");
  desk.Click("mnuExit");
  stage::WaitUntil([&] { return !desk.Program->IsRunning(); }, kExitLimitSeconds);
  reporter.Look();
  int code = desk.Program->ExitCode().value_or(-1);
  reporter.Say("the program has ended with code " + std::to_string(code));
}

void Keep(const stage::Stage& desk, const std::string& recording) {
  desk.Card->Take().Write(recording);
  printf("Recording: %s\n", recording.c_str());
}

/// Saves a picture of a window.
void KeepPicture(const stage::Stage& desk, stage::ProbeLink& link, const std::string& window,
                 const std::string& picture) {
  const std::optional<stage::ScreenArea> area = link.Geometry(window);
  if (area && desk.Display->Picture(picture, *area)) printf("Screenshot: %s\n", picture.c_str());
}

int Run(const std::string& program, const std::string& amplifier, const std::string& installation,
        const std::string& output) {
  namespace fs = std::filesystem;
  fs::create_directories(output);
  stage::StageOptions options;
  options.Program = program;
  options.Helpers = MARLEX_BINARY_DIR "/helpers";
  options.Installation = fs::absolute(installation).string();
  options.Cards.Microphone = true;
  options.HasAmplifier = !fs::exists(options.Installation + "/com1");
  if (options.HasAmplifier) options.StandIn = fs::absolute(amplifier).string();
  stage::Stage desk(options);
  Reporter reporter(desk);
  desk.Start(kStart);
  reporter.Say("the program is started in " + options.Installation);
  FirstAnnouncement announcement(desk);
  bool isGood = Watch(
      desk, reporter, [&] { return announcement.IsPlaying(); }, kLimitSeconds);
  Watch(
      desk, reporter, [] { return false; }, kRoutingSeconds);
  KeepPicture(desk, *desk.Window, "frmMain", output + "/marlex.png");
  if (desk.StandIn)
    KeepPicture(desk, *desk.StandInWindow, "frmAmplifier", output + "/amplifier.png");
  isGood = isGood && Watch(
                         desk, reporter, [&] { return announcement.IsOver(); }, kLimitSeconds);
  if (isGood)
    Watch(
        desk, reporter, [] { return false; }, kMusicAfterwardsSeconds);
  if (isGood) Leave(desk, reporter);
  Keep(desk, output + "/marlex.wav");
  if (!isGood) fprintf(stderr, "The announcement did not come.\n%s", desk.ProgramLog().c_str());
  return isGood ? 0 : 1;
}

}  // namespace
}  // namespace marlex::watch

int main(int count, char** arguments) {
  if (count != 5) {
    fprintf(stderr, "Usage: marlex_watch PROGRAM AMPLIFIER INSTALLATION OUTPUT_FOLDER\n");
    return 2;
  }
  try {
    return marlex::watch::Run(arguments[1], arguments[2], arguments[3], arguments[4]);
  } catch (const std::exception& failure) {
    fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
