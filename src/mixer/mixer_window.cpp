#include "mixer/mixer_window.h"

#include <array>
#include <cstdlib>
#include <string>

namespace marlex {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kStripPixels = 92;

/// Top of a meter's lit bar, in pixels, for a peak below a limit; the first limit that fits counts.
struct MeterStep {
  std::int32_t Below;
  int BarTop;
};
constexpr std::array<MeterStep, 9> kMeterSteps = {{{6446, 61},
                                                   {9769, 54},
                                                   {13030, 47},
                                                   {16144, 40},
                                                   {19495, 33},
                                                   {22678, 26},
                                                   {25979, 19},
                                                   {29436, 12},
                                                   {30261, 5}}};

}  // namespace

MixerWindow::MixerWindow(FrmMxr& frmMxr, MixerAccess& mixer, EventLoop& loop, Process& process)
    : TheFrmMxr(frmMxr), Mixer(mixer), Loop(loop), TheProcess(process) {
  frmMxr.OnUnload = [this] { return Unload(); };
  frmMxr.TmrQuit.OnTimer = [this] { TheFrmMxr.Unload(); };
}

/// The first unload ends the meters and closes the mixer; the timer then unloads the panel again,
/// which ends the process.
bool MixerWindow::Unload() {
  if (TheFrmMxr.TmrQuit.Enabled) {
    TheFrmMxr.TmrQuit.Enabled = false;
    TheProcess.End();
  }
  QuitRequested = true;
  Mixer.Close();
  TheFrmMxr.TmrQuit.Enabled = true;
  return false;
}

void MixerWindow::ActivateMixerWindow(Screen screen) {
  for (int line = 0; line <= Mixer.SourceLineCount; ++line) ShowStrip(line);
  TheFrmMxr.Caption = "Volume Control - (" + Mixer.MixerName + ")";
  TheFrmMxr.Height = 4170;
  TheFrmMxr.Width = ((Mixer.SourceLineCount + 1) * kStripPixels + 15) * kTwipsPerPixel;
  TheFrmMxr.Left = (screen.Width - TheFrmMxr.Width) / 2;
  TheFrmMxr.Top = (screen.Height - TheFrmMxr.Height) / 3;
  if (!MeterList.empty()) RunLevelMeters();
}

void MixerWindow::ShowStrip(int line) {
  const MixerLineRecord record = Mixer.Record(line);
  if (record.Channels < 2) TheFrmMxr.SldrPan[line].Enabled = false;
  TheFrmMxr.SldrVol[line].Value = static_cast<int>(record.Level);
  TheFrmMxr.ChkMute[line].Value = static_cast<int>(record.Mute);
  if (record.MeterControlId != 0) {
    TheFrmMxr.PicLed[line].Visible = true;
    MeterList.emplace_back(record.MeterControlId, line);
  } else {
    TheFrmMxr.SldrVol[line].Left = 390;
  }
  TheFrmMxr.Fra[line].Visible = true;
}

void MixerWindow::RunLevelMeters() {
  // The meters are read twenty times a second; in between, the loop can sleep.
  constexpr int kMeterPeriodMs = 50;
  bool due = true;
  const auto period = Loop.StartTimer(kMeterPeriodMs, [&due] { due = true; });
  while (!QuitRequested) {
    due = false;
    for (const auto& [meter, line] : MeterList) ShowPeak(meter, line);
    Loop.PumpUntil([this, &due] { return QuitRequested || due; });
  }
  Loop.StopTimer(period);
}

void MixerWindow::ShowPeak(std::uint32_t meterControlId, int line) {
  const std::int32_t peak = Mixer.ReadMeter(meterControlId);
  Picture& meter = TheFrmMxr.PicLed[line];
  meter.Lit = peak != 0;
  for (const MeterStep& step : kMeterSteps) {
    if (peak == 0 || peak >= step.Below) continue;
    meter.BarTop = step.BarTop;
    return;
  }
}

}  // namespace marlex
