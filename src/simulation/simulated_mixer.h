#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/mixer_functions.h"
#include "simulation/journal.h"

namespace marlex {

/// One line of the simulated mixer with its current values, 0 (silence) to 65535 (full).
struct SimulatedLine {
  std::uint32_t ComponentType = 0;
  std::string Name;
  std::uint32_t Channels = 2;
  bool HasVolume = true;
  bool HasMute = true;
  bool HasMeter = true;
  std::array<std::uint32_t, 2> Volume{65535, 65535};  // left and right; a mono line uses the first
  std::uint32_t Mute = 0;                             // 0 or 1
  std::array<std::uint32_t, 2> Peak{0, 0};            // meter reading, set by the test
};

struct SimulatedDestination {
  SimulatedLine Line;
  std::vector<SimulatedLine> Sources;
};

struct SimulatedMixerDevice {
  std::string ProductName = "Simulated mixer";
  std::vector<SimulatedDestination> Destinations;
};

/// Mixer devices in memory, which the test may change freely. Initially there is one, with stereo
/// speakers, a stereo wave output and a mono microphone that is muted; each has a volume, a mute
/// and a meter, and all volumes are full. The values survive the end of a process, as on a sound
/// card. Ids are computed from the positions of the lines, so do not reorder those while a system
/// runs.
class SimulatedMixer : public MixerFunctions {
 public:
  explicit SimulatedMixer(Journal& journal);

  std::uint32_t GetNumDevs() override { return static_cast<std::uint32_t>(Devices.size()); }
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
  void Close(std::uint32_t handle) override;

  /// All mixers of the PC. Clear it for a PC without a sound card.
  std::vector<SimulatedMixerDevice> Devices;

  std::uint32_t OpenResult = kMixerNoError;  // what `Open` returns
  std::uint32_t CapsResult = kMixerNoError;  // what `GetDevCaps` returns

  std::set<std::uint32_t> HiddenTypes;      // component types for which `GetLineOfType` fails
  std::set<std::uint32_t> LostSources;      // numbers of sources for which `GetSource` fails
  std::set<std::uint32_t> UnreadableTypes;  // control types for which `GetControlDetails` fails
  bool RefusesSettings = false;             // `SetControlDetails` fails and changes nothing

  /// Whether the latest attempt to set a control of this type, on the first line of this component
  /// type, was refused.
  bool HasMissed(std::uint32_t componentType, std::uint32_t controlType) const {
    return MissedSettings.contains({Line(componentType), controlType});
  }

  /// The first line of this component type on the first device; null when there is none.
  SimulatedLine* Line(std::uint32_t componentType);
  const SimulatedLine* Line(std::uint32_t componentType) const;

  /// Level of the louder channel of that line, 0 to 65535; 0 when there is no such line.
  std::uint32_t Level(std::uint32_t componentType) const;

  /// Whether that line is muted; true when there is no such line.
  bool Muted(std::uint32_t componentType) const;

  /// Adds another source to the speakers, after the existing ones. The reference is valid until the
  /// next source is added.
  SimulatedLine& AddSource(std::uint32_t componentType, const std::string& name,
                           std::uint32_t channels = 2);

  /// Whether a handle is open.
  bool IsOpen() const { return !OpenHandles.empty(); }

  /// Drops all handles, as the end of the process does.
  void Reset() { OpenHandles.clear(); }

 private:
  struct Control {
    SimulatedLine* Line;
    std::uint32_t Type;
  };

  SimulatedMixerDevice* Device(std::uint32_t handle);
  SimulatedLine* LineById(std::uint32_t handle, std::uint32_t lineId);
  std::optional<Control> ControlById(std::uint32_t handle, std::uint32_t controlId);
  void SetVolume(SimulatedLine& line, const std::vector<std::uint32_t>& values);
  void SetMute(SimulatedLine& line, bool muted);

  Journal& Log;
  std::map<std::uint32_t, std::uint32_t> OpenHandles;  // with the device of each
  std::uint32_t LastHandle = 0;
  std::set<std::pair<const SimulatedLine*, std::uint32_t>> MissedSettings;
};

}  // namespace marlex
