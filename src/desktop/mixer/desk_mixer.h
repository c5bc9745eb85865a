#pragma once

#include <memory>
#include <set>
#include <string>

#include "desktop/mixer/mixer_line.h"
#include "platform/mixer_functions.h"

namespace marlex {

/// What a `DeskMixer` is made of.
struct DeskMixerParts {
  bool HasOutput = true;  // without one there is no mixer device
  std::string CardName;   // for the operator, in UTF-8
  std::unique_ptr<MixerLine> Speakers;
  std::unique_ptr<MixerLine> WaveSource;
  std::unique_ptr<MixerLine> MicrophoneSource;  // null when the PC has none
};

/// The mixer of a real PC, with the numbers of the published mixer interface. Device 0 is the sound
/// card. Its only destination is the speakers, whose sources are the wave output and, if there is
/// one, the microphone. Every line has two channels, a volume, a mute and a peak meter.
class DeskMixer : public MixerFunctions {
 public:
  explicit DeskMixer(DeskMixerParts parts) : Parts(std::move(parts)) {}

  std::uint32_t GetNumDevs() override { return Parts.HasOutput ? 1 : 0; }
  std::uint32_t Open(std::uint32_t device, std::uint32_t& handle) override;
  std::uint32_t GetDevCaps(std::uint32_t device, MixerCaps& caps) override;
  std::optional<MixerLineInfo> GetDestination(std::uint32_t handle,
                                              std::uint32_t destination) override;
  std::optional<MixerLineInfo> GetSource(std::uint32_t handle, std::uint32_t destination,
                                         std::uint32_t source) override;
  std::optional<MixerLineInfo> GetLineOfType(std::uint32_t handle,
                                             std::uint32_t componentType) override;
  std::optional<std::uint32_t> GetLineControl(std::uint32_t handle, std::uint32_t lineId,
                                              std::uint32_t controlType) override;
  std::vector<std::uint32_t> GetControlDetails(std::uint32_t handle, std::uint32_t controlId,
                                               std::uint32_t channels) override;
  std::uint32_t SetControlDetails(std::uint32_t handle, std::uint32_t controlId,
                                  const std::vector<std::uint32_t>& values) override;

  /// Waits briefly until the card has what was set before, since the program may end right after.
  void Close(std::uint32_t handle) override;

 private:
  std::uint32_t Sources() const { return Parts.MicrophoneSource ? 2 : 1; }
  bool IsOpen(std::uint32_t handle) const { return Handles.contains(handle); }
  MixerLineInfo Describe(std::uint32_t line) const;
  MixerLine* LineOf(std::uint32_t controlId) const;

  DeskMixerParts Parts;
  std::set<std::uint32_t> Handles;
  std::uint32_t LastHandle = 0;
};

}  // namespace marlex
