#include "music/fades.h"

#include <algorithm>

#include "text/numbers.h"

namespace marlex {
namespace {

constexpr int kFastStep = 2000;
constexpr int kSlowStep = 1000;

}  // namespace

Fades::Fades(Flags& flags, const Settings& settings, EventLoop& loop, FrmPlayers& frmPlayers,
             SoundLines& lines)
    : TheFlags(flags), TheSettings(settings), Loop(loop), TheFrmPlayers(frmPlayers), Lines(lines) {
  frmPlayers.tmrFadeTime.OnTimer = [this] { Step(); };
}

void Fades::FadeDown() {
  TheFlags.FadeRunning = true;
  FadeIn = false;
  WorkOutSteps();
  TheFrmPlayers.tmrFadeTime.Enabled = true;
  Loop.PumpUntil([this] { return !TheFlags.FadeRunning || TheFlags.CallEndedDuringFade; });
}

void Fades::FadeUp() {
  TheFlags.FadeRunning = true;
  FadeIn = true;
  if (FadeStep == 0) WorkOutSteps();
  TheFrmPlayers.tmrFadeTime.Enabled = true;
  Loop.PumpUntil([this] { return !TheFlags.FadeRunning; });
}

void Fades::WorkOutSteps() {
  FadeTarget = TheSettings.MusicVolume;
  FadeStep = TheSettings.FadeTime == kFastFadeTimeMs ? kFastStep : kSlowStep;
  FadeSteps = (FrmMxr::kSilent - TheSettings.MusicVolume) / FadeStep;
  const double steps = std::max(FadeSteps, 1);
  TheFrmPlayers.tmrFadeTime.Interval =
      static_cast<int>(RoundHalfEven(TheSettings.FadeTime / steps));
}

void Fades::Step() {
  const int position = Lines.Wave();
  if (FadeSteps == 0) {
    // A music volume close to silence leaves no whole step: such a fade is over in one.
    EndAt(FadeIn ? FadeTarget : FrmMxr::kSilent);
  } else if (FadeIn) {
    StepUp(position);
  } else {
    StepDown(position);
  }
}

void Fades::StepDown(int position) {
  if (position < FrmMxr::kSilent - 1 - FadeStep) {
    Lines.SetWave(position + FadeStep);
  } else {
    EndAt(FrmMxr::kSilent);
  }
}

/// Deliberate: the fade up overshoots its target by up to two steps, and falls back to it with the
/// last one.
void Fades::StepUp(int position) {
  if (position == 0) {
    EndAt(0);
  } else if (position > FadeTarget - FadeStep + 1) {
    Lines.SetWave(position - FadeStep);
  } else {
    EndAt(FadeTarget);
  }
}

void Fades::EndAt(int position) {
  Lines.SetWave(position);
  Stop();
}

void Fades::BringMusicUp() {
  if (TheSettings.FadeTime <= 0) return Lines.SetWave(TheSettings.MusicVolume);
  Lines.SetWave(FrmMxr::kSilent);
  FadeUp();
}

void Fades::Stop() {
  TheFrmPlayers.tmrFadeTime.Enabled = false;
  TheFlags.FadeRunning = false;
}

}  // namespace marlex
