#include "desktop/mixer/desk_mixer.h"

#include <algorithm>
#include <utility>

namespace marlex {

namespace {

constexpr std::uint32_t kChannels = 2;
constexpr std::uint32_t kFull = kFullLevel;

// Lines: the index of each, and its id as the published interface forms it for a destination and
// for a source.
enum Line : std::uint32_t { kSpeakers = 0, kWave = 1, kMicrophone = 2 };
constexpr std::uint32_t kLineIds[] = {0xFFFF0000, 0x00000000, 0x00010000};
constexpr std::uint32_t kComponents[] = {kComponentSpeakers, kComponentWaveOut,
                                         kComponentMicrophone};
constexpr const char* kNames[] = {"Speakers", "Wave", "Microphone"};

// Controls: the id is the line times 16 plus one of these, so that no id is 0.
enum Control : std::uint32_t { kVolume = 1, kMute = 2, kPeak = 3 };
constexpr std::uint32_t kIdsPerLine = 16;

std::optional<std::uint32_t> KindOf(std::uint32_t controlType) {
  switch (controlType) {
    case kControlVolume:
      return kVolume;
    case kControlMute:
      return kMute;
    case kControlPeakMeter:
      return kPeak;
    default:
      return std::nullopt;
  }
}

int LevelOf(std::uint32_t value) { return static_cast<int>(std::min(value, kFull)); }

}  // namespace

std::uint32_t DeskMixer::Open(std::uint32_t device, std::uint32_t& handle) {
  if (device >= GetNumDevs()) return kMixerBadDevice;
  handle = ++LastHandle;
  Handles.insert(handle);
  return kMixerNoError;
}

std::uint32_t DeskMixer::GetDevCaps(std::uint32_t device, MixerCaps& caps) {
  if (device >= GetNumDevs()) return kMixerBadDevice;
  caps.ProductName = Parts.CardName;
  caps.Destinations = 1;
  return kMixerNoError;
}

std::optional<MixerLineInfo> DeskMixer::GetDestination(std::uint32_t handle,
                                                       std::uint32_t destination) {
  if (!IsOpen(handle) || destination != 0) return std::nullopt;
  return Describe(kSpeakers);
}

std::optional<MixerLineInfo> DeskMixer::GetSource(std::uint32_t handle, std::uint32_t destination,
                                                  std::uint32_t source) {
  if (!IsOpen(handle) || destination != 0 || source >= Sources()) return std::nullopt;
  return Describe(source + 1);
}

std::optional<MixerLineInfo> DeskMixer::GetLineOfType(std::uint32_t handle,
                                                      std::uint32_t componentType) {
  if (!IsOpen(handle)) return std::nullopt;
  for (std::uint32_t line = 0; line <= Sources(); ++line) {
    if (kComponents[line] == componentType) return Describe(line);
  }
  return std::nullopt;
}

std::optional<std::uint32_t> DeskMixer::GetLineControl(std::uint32_t handle, std::uint32_t lineId,
                                                       std::uint32_t controlType) {
  const std::optional<std::uint32_t> kind = KindOf(controlType);
  if (!IsOpen(handle) || !kind) return std::nullopt;
  for (std::uint32_t line = 0; line <= Sources(); ++line) {
    if (kLineIds[line] == lineId) return line * kIdsPerLine + *kind;
  }
  return std::nullopt;
}

std::vector<std::uint32_t> DeskMixer::GetControlDetails(std::uint32_t handle,
                                                        std::uint32_t controlId,
                                                        std::uint32_t channels) {
  MixerLine* line = LineOf(controlId);
  if (!IsOpen(handle) || !line || channels > kChannels) return {};
  std::vector<std::uint32_t> values;
  switch (controlId % kIdsPerLine) {
    case kVolume: {
      const StereoLevel level = line->Level();
      values = {static_cast<std::uint32_t>(level.Left), static_cast<std::uint32_t>(level.Right)};
      values.resize(channels);
      break;
    }
    case kMute:
      values.assign(channels, line->Muted() ? 1 : 0);
      break;
    case kPeak:
      values.assign(channels, static_cast<std::uint32_t>(line->Peak()));
      break;
  }
  return values;
}

std::uint32_t DeskMixer::SetControlDetails(std::uint32_t handle, std::uint32_t controlId,
                                           const std::vector<std::uint32_t>& values) {
  if (!IsOpen(handle)) return kMixerInvalidHandle;
  MixerLine* line = LineOf(controlId);
  const std::uint32_t kind = controlId % kIdsPerLine;
  if (!line || kind == kPeak) return kMixerInvalidControl;
  if (values.empty() || values.size() > kChannels) return kMixerInvalidParameter;
  if (kind == kVolume) {
    line->SetLevel({LevelOf(values.front()), LevelOf(values.back())});
  } else {
    line->SetMute(values.front() != 0);
  }
  return kMixerNoError;
}

void DeskMixer::Close(std::uint32_t handle) {
  if (Handles.erase(handle) > 0) Parts.Speakers->Settle();
}

MixerLineInfo DeskMixer::Describe(std::uint32_t line) const {
  return {kLineIds[line], kComponents[line], kChannels, line == kSpeakers ? Sources() : 0,
          kNames[line]};
}

/// The line of an existing control; null for any other number.
MixerLine* DeskMixer::LineOf(std::uint32_t controlId) const {
  const std::uint32_t kind = controlId % kIdsPerLine;
  if (kind < kVolume || kind > kPeak) return nullptr;
  switch (controlId / kIdsPerLine) {
    case kSpeakers:
      return Parts.Speakers.get();
    case kWave:
      return Parts.WaveSource.get();
    case kMicrophone:
      return Parts.MicrophoneSource.get();
    default:
      return nullptr;
  }
}

}  // namespace marlex
