#include "latency_bench.h"

#include <iterator>
#include <stdexcept>

#include "desktop/sound/microphone_delay.h"
#include "real_program.h"
#include "sound/wait.h"
#include "system/stage/installation.h"

namespace marlex::bench {
namespace {

constexpr int kRepetitions = 5;
constexpr double kSilenceBudgetMs = 50;
constexpr double kMicrophoneBudgetMs = 20;
constexpr double kCallButtonBudgetMs = 30;
constexpr double kLimitSeconds = 20;
constexpr double kSilentDb = -60;
constexpr int kTakeOver = 128;
constexpr int kIdle = 0;

/// A row every hour.
stage::InstallationFiles Files(bool withMusic) {
  stage::InstallationFiles files;
  files.Songs = {{"Song", stage::Tone(440, 120)}};
  files.Messages = {{"Message", stage::Tone(700, 0.2)}};
  files.Sequences = {{"Hourly", "Message", "00-23", "00"}};
  files.MusicVolume = 0;
  files.Autostart = withMusic;
  return files;
}

bool AwaitLevel(stage::Stage& desk, bool isLoud) {
  constexpr double kHeardSeconds = 0.2;
  return stage::WaitUntil(
      [&] { return (desk.Card->LevelNowDb(kHeardSeconds) > kSilentDb) == isLoud; }, kLimitSeconds);
}

/// Time until silence, in milliseconds. The song is a continuous tone, so a few silent milliseconds
/// mean its end.
double SilenceAfterMs(stage::Stage& desk, double moment) {
  constexpr double kHeardSeconds = 0.005;
  while (desk.Card->LevelNowDb(kHeardSeconds) > kSilentDb) {
    if (stage::Now() - moment > kLimitSeconds) throw std::runtime_error("the music plays on");
    Sleep(0.001);
  }
  return (stage::Now() - moment) * 1000;
}

/// Milliseconds of sound that the card buffers while music plays, as the server derives them from
/// the requests of its clients.
double CardQueueMs(stage::Stage& desk) {
  const std::string text = desk.Server->Control("list sinks");
  constexpr std::string_view kKey = "configured ";
  const std::size_t place = text.find(kKey);
  if (place == std::string::npos) throw std::runtime_error("the sound server reports no latency");
  return std::stod(text.substr(place + kKey.size())) / 1000;
}

/// A mute takes effect with a delay of what the card buffers. The recorder requests a shorter
/// buffer than the program has when nobody records, so the difference is added to what is measured
/// with the recorder.
void MeasureSilence(Report& report) {
  Figure recorded{"status byte to silence in the recording [ms]", {}};
  Figure worst{"the same with the queue of a card that is not recorded [ms]", {}, kSilenceBudgetMs};
  try {
    AwaitOthersEnd();
    stage::Stage desk(ProgramOptions());
    stage::LayOut(desk.Installation, Files(true));
    desk.Start("2031-05-05 08:30:00");
    for (int i = 0; i < kRepetitions; ++i) {
      if (!AwaitLevel(desk, true)) throw std::runtime_error("no music is heard");
      desk.Card.reset();
      Sleep(0.5);
      const double queueMs = CardQueueMs(desk);
      desk.StartRecording();
      Sleep(0.5 + 0.013 * i);  // not in step with anything
      const double recordedQueueMs = CardQueueMs(desk);
      const double sent = stage::Now();
      desk.Line->Send(kTakeOver);
      recorded.Values.push_back(SilenceAfterMs(desk, sent));
      worst.Values.push_back(recorded.Values.back() + queueMs - recordedQueueMs);
      if (!AwaitLevel(desk, false)) throw std::runtime_error("the music comes back by itself");
      desk.Line->Send(kIdle);
    }
  } catch (const std::exception& failure) {
    recorded.Failure = worst.Failure = failure.what();
  }
  report.Add(recorded);
  report.Add(worst);
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string WhyNoWindow(const stage::Stage& desk) {
  if (desk.Window->Read("QMessageBox", "visible") != "yes") return "no main window";
  const std::string text = desk.Window->Read("QMessageBox", "text");
  return text.empty() ? "another Tolvo Marlex runs" : "a box: " + text;
}

Figure MeasureMinute() {
  Figure figure{"minute change to the first byte on the line [ms]", {}};
  try {
    AwaitOthersEnd();
    stage::Stage desk(ProgramOptions());
    stage::LayOut(desk.Installation, Files(false));
    desk.Start("2031-05-05 08:30:00");
    if (!desk.Await("frmMain", "visible", "yes")) throw std::runtime_error(WhyNoWindow(desk));
    for (int i = 0; i < kRepetitions; ++i) {
      Sleep(1 + 0.17 * i);  // so that the tick falls elsewhere in the second each time
      const std::size_t before = desk.Line->Received().size();
      const std::string day = "2031-05-05 ";
      desk.Clock->Set(day + TwoDigits(9 + i) + ":59:59");
      const double due = desk.Clock->SteadyTimeOf(day + TwoDigits(10 + i) + ":00:00");
      if (!stage::WaitUntil([&] { return desk.Line->Received().size() > before; }, kLimitSeconds)) {
        throw std::runtime_error("no byte came");
      }
      figure.Values.push_back((desk.Line->Received()[before].Time - due) * 1000);
      // The message, and the byte sent at its end.
      if (!AwaitLevel(desk, true) || !AwaitLevel(desk, false)) {
        throw std::runtime_error("the message was not heard");
      }
    }
  } catch (const std::exception& failure) {
    figure.Failure = failure.what();
  }
  return figure;
}

/// Somebody speaks all the time. The music has been stopped, so that the master is open and no fade
/// comes first. The time includes the tool that presses, and the path of the voice into the
/// recording.
Figure MeasureCallButton() {
  Figure figure{"call button to the voice in the recording [ms]", {}, kCallButtonBudgetMs};
  try {
    AwaitOthersEnd();
    stage::StageOptions options = ProgramOptions();
    options.Cards.Microphone = true;
    stage::Stage desk(options);
    stage::LayOut(desk.Installation, Files(true));
    desk.Start("2031-05-05 08:30:00");
    const std::string speech = desk.Folder + "/speech.wav";
    stage::WriteWavFile(speech, stage::Tone(1000, 120));
    const auto speaker = desk.Server->Speak(speech);
    if (!AwaitLevel(desk, true)) throw std::runtime_error("no music is heard");
    desk.Click("frmMain.cmdStop");
    for (int i = 0; i < kRepetitions; ++i) {
      if (!AwaitLevel(desk, false)) throw std::runtime_error("it is not silent");
      Sleep(0.5 + 0.013 * i);  // not in step with anything
      const std::optional<stage::ScreenArea> button = desk.Window->Geometry("frmMain.cmdCall");
      if (!button) throw std::runtime_error("there is no call button");
      const double pressed = stage::Now();
      desk.Display->Press(button->X + button->Width / 2, button->Y + button->Height / 2);
      while (desk.Card->LevelNowDb(0.005) < kSilentDb && stage::Now() < pressed + kLimitSeconds)
        Sleep(0.001);
      figure.Values.push_back((stage::Now() - pressed) * 1000);
      Sleep(0.5);
      desk.Display->Release();
    }
  } catch (const std::exception& failure) {
    figure.Failure = failure.what();
  }
  return figure;
}

/// Only the program's own delay, on a server whose cards add none.
Figure MeasureMicrophone() {
  Figure figure{"microphone to output [ms]", {}, kMicrophoneBudgetMs};
  try {
    figure.Values = MicrophoneDelay({.UseCard = false}).Measure(kRepetitions);
    if (figure.Values.empty()) throw std::runtime_error("the microphone was not heard");
  } catch (const std::exception& failure) {
    figure.Failure = failure.what();
  }
  return figure;
}

}  // namespace

void MeasureLatencies(Report& report) {
  report.Section("Answers of the real program");
  MeasureSilence(report);
  report.Add(MeasureMinute());
  report.Add(MeasureCallButton());
  report.Add(MeasureMicrophone());  // last, since it changes the environment
}

}  // namespace marlex::bench
