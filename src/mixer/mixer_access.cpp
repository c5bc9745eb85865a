#include "mixer/mixer_access.h"

#include <algorithm>
#include <cstdlib>

#include "text/numbers.h"

namespace marlex {
namespace {

constexpr std::uint32_t kFullLevel = 65535;
constexpr std::uint32_t kMostSources = FrmMxr::kLines - 1;  // the first line is the speakers
constexpr std::uint32_t kDevice = 0;

std::string UpToNul(const std::string& text) { return text.substr(0, text.find('\0')); }

}  // namespace

MixerAccess::MixerAccess(MixerFunctions& functions, FrmMxr& frmMxr, Dialogs& dialogs,
                         Process& process, const StringTable& strings)
    : Functions(functions),
      TheFrmMxr(frmMxr),
      TheDialogs(dialogs),
      TheProcess(process),
      Strings(strings) {
  for (int line = 0; line < FrmMxr::kLines; ++line) {
    frmMxr.SldrVol[line].OnChange = [this, line] { SetLineVolume(line); };
    frmMxr.SldrPan[line].OnChange = [this, line] { SetLineVolume(line); };
    frmMxr.ChkMute[line].OnClick = [this, line] { SetLineMute(line); };
  }
}

void MixerAccess::InitMixer() {
  if (!CheckMixerPresent() || !OpenMixer() || !ReadMixerCaps()) TheProcess.End();
  ReadMixerLines();
  TheFrmMxr.Load();
}

bool MixerAccess::CheckMixerPresent() {
  if (Functions.GetNumDevs() > 0) return true;
  Fail(Strings.LoadString(kStrNoMixer) + "\r\n" + Strings.LoadString(kStrPossibleCauses) + "\r\n" +
       Strings.LoadString(kStrNoSoundCard) + "\r\n\r\n" + Strings.LoadString(kStrTerminating));
  return false;
}

bool MixerAccess::OpenMixer() {
  if (Functions.Open(kDevice, MixerHandle) == kMixerNoError) return true;
  Fail(Strings.LoadString(kStrCannotOpenMixer) + "\r\n\r\n" + Strings.LoadString(kStrTerminating));
  return false;
}

bool MixerAccess::ReadMixerCaps() {
  MixerCaps caps;
  if (Functions.GetDevCaps(kDevice, caps) != kMixerNoError) {
    Fail(Strings.LoadString(kStrNoMixerCaps) + "\r\n\r\n" + Strings.LoadString(kStrTerminating));
    return false;
  }
  LastDestinationIndex = static_cast<int>(caps.Destinations) - 1;
  MixerName = UpToNul(caps.ProductName);
  return true;
}

void MixerAccess::Fail(const std::string& body) {
  TheDialogs.MsgBox(body, BoxIcon::Critical, "Volume Control" + Strings.LoadString(kStrError));
}

void MixerAccess::ReadMixerLines() {
  for (int d = 0; d <= LastDestinationIndex; ++d) {
    const auto destination = static_cast<std::uint32_t>(d);
    const auto speakers = Functions.GetDestination(MixerHandle, destination);
    if (!speakers || speakers->ComponentType != kComponentSpeakers) continue;

    const std::uint32_t sources = std::min(speakers->Connections, kMostSources);
    SourceLineCount = static_cast<int>(sources);
    MixerLines.assign(sources + 1, {});
    FillRecord(0, *speakers);
    for (std::uint32_t s = 0; s < sources; ++s) {
      const auto source = Functions.GetSource(MixerHandle, destination, s);
      FillRecord(static_cast<int>(s) + 1, source.value_or(MixerLineInfo{}));
    }
    return;
  }
}

void MixerAccess::FillRecord(int index, const MixerLineInfo& line) {
  Record(index).Channels = line.Channels;
  TheFrmMxr.LblName[index].Caption = UpToNul(line.Name);
  ReadVolume(index, line);
  ReadMute(index, line);
  Record(index).MeterControlId = FindLineControl(line, kControlPeakMeter);
}

void MixerAccess::ReadVolume(int index, const MixerLineInfo& line) {
  MixerLineRecord& record = Record(index);
  record.VolumeControlId = FindLineControl(line, kControlVolume);
  if (record.VolumeControlId == 0) {
    TheFrmMxr.SldrVol[index].Enabled = false;
    return;
  }
  const auto values =
      Functions.GetControlDetails(MixerHandle, record.VolumeControlId, line.Channels);
  record.Level = kFullLevel - std::min(values.empty() ? 0 : values.front(), kFullLevel);
  // The first setting is always sent, even an equal one, so that the card is known to have it.
  TheFrmMxr.SldrVol[index].Value.Forget();
  if (index == 0) return;
  if (line.ComponentType == kComponentMicrophone && MicLine == 0) MicLine = index;
  if (line.ComponentType == kComponentWaveOut && WaveLine == 0) WaveLine = index;
}

void MixerAccess::ReadMute(int index, const MixerLineInfo& line) {
  MixerLineRecord& record = Record(index);
  record.MuteControlId = FindLineControl(line, kControlMute);
  if (record.MuteControlId == 0) {
    TheFrmMxr.ChkMute[index].Enabled = false;
    return;
  }
  const auto values = Functions.GetControlDetails(MixerHandle, record.MuteControlId, line.Channels);
  record.Mute = values.empty() || values.front() == 0 ? 0 : 1;
  TheFrmMxr.ChkMute[index].Value.Forget();
}

/// Id of the line's control of a type, 0 if there is none. `GetLineOfType` only tests that a line
/// of this component type exists; the control is that of the line itself.
std::uint32_t MixerAccess::FindLineControl(const MixerLineInfo& line, std::uint32_t controlType) {
  if (!Functions.GetLineOfType(MixerHandle, line.ComponentType)) return 0;
  return Functions.GetLineControl(MixerHandle, line.LineId, controlType).value_or(0);
}

MixerLineRecord& MixerAccess::Record(int index) {
  if (index < 0 || index >= static_cast<int>(MixerLines.size())) {
    throw RuntimeFailure("Mixer line " + std::to_string(index) + " out of range");
  }
  return MixerLines[static_cast<std::size_t>(index)];
}

void MixerAccess::SetLineVolume(int index) {
  if (MixerLines.empty()) return;
  MixerLineRecord& record = Record(index);
  if (TheFrmMxr.SldrVol[index].Value.Forgotten()) return;
  const int position = TheFrmMxr.SldrVol[index].Value;
  const std::uint32_t level = kFullLevel - static_cast<std::uint32_t>(position);
  if (record.Channels != 2) {
    record.Level = level;
    SendVolume(index, {level});
    return;
  }
  const double balance = TheFrmMxr.SldrPan[index].Value / 100.0;
  const double v = level;
  record.LeftLevel =
      balance < 0 ? level : static_cast<std::uint32_t>(RoundHalfEven(v - balance * v));
  record.RightLevel =
      balance < 0 ? static_cast<std::uint32_t>(RoundHalfEven(balance * v + v)) : level;
  SendVolume(index, {record.LeftLevel, record.RightLevel});
}

/// A setting that the card refuses is forgotten, so that the next one is sent even if it is equal.
/// Otherwise one refusal would leave the line as it is, silent perhaps, for good.
void MixerAccess::SendVolume(int index, const std::vector<std::uint32_t>& levels) {
  const std::uint32_t control = Record(index).VolumeControlId;
  if (Functions.SetControlDetails(MixerHandle, control, levels) != kMixerNoError)
    TheFrmMxr.SldrVol[index].Value.Forget();
}

void MixerAccess::SetLineMute(int index) {
  if (MixerLines.empty()) return;
  MixerLineRecord& record = Record(index);
  record.Mute = static_cast<std::uint32_t>(TheFrmMxr.ChkMute[index].Value.Get());
  const std::uint32_t result =
      Functions.SetControlDetails(MixerHandle, record.MuteControlId, {record.Mute});
  if (result != kMixerNoError) TheFrmMxr.ChkMute[index].Value.Forget();
}

std::int32_t MixerAccess::ReadMeter(std::uint32_t meterControlId) {
  const auto values = Functions.GetControlDetails(MixerHandle, meterControlId, 1);
  if (values.empty()) return 0;
  const auto peak = static_cast<std::int32_t>(values.front());
  return peak == INT32_MIN ? INT32_MAX : std::abs(peak);
}

}  // namespace marlex
