#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace marlex {

/// Constants of the published mixer interface that the system uses.
inline constexpr std::uint32_t kMixerNoError = 0;
inline constexpr std::uint32_t kMixerBadDevice = 2;          // MMSYSERR_BADDEVICEID
inline constexpr std::uint32_t kMixerInvalidHandle = 5;      // MMSYSERR_INVALHANDLE
inline constexpr std::uint32_t kMixerInvalidParameter = 11;  // MMSYSERR_INVALPARAM
inline constexpr std::uint32_t kMixerInvalidControl = 1025;  // MIXERR_INVALCONTROL
inline constexpr std::uint32_t kComponentSpeakers = 4;       // MIXERLINE_COMPONENTTYPE_DST_SPEAKERS
// MIXERLINE_COMPONENTTYPE_SRC_MICROPHONE
inline constexpr std::uint32_t kComponentMicrophone = 4099;
inline constexpr std::uint32_t kComponentWaveOut = 4104;     // MIXERLINE_COMPONENTTYPE_SRC_WAVEOUT
inline constexpr std::uint32_t kControlVolume = 0x50030001;  // MIXERCONTROL_CONTROLTYPE_VOLUME
inline constexpr std::uint32_t kControlMute = 0x20010002;    // MIXERCONTROL_CONTROLTYPE_MUTE
// MIXERCONTROL_CONTROLTYPE_PEAKMETER
inline constexpr std::uint32_t kControlPeakMeter = 0x10020001;

struct MixerCaps {
  std::string ProductName;  // may contain a NUL; what follows that does not count
  std::uint32_t Destinations = 0;
};

struct MixerLineInfo {
  std::uint32_t LineId = 0;
  std::uint32_t ComponentType = 0;
  std::uint32_t Channels = 0;
  std::uint32_t Connections = 0;  // number of source lines of a destination
  std::string Name;               // long name; a NUL and what follows do not count
};

/// The mixer of the sound card: devices, lines, controls, and values from 0 (silence) to 65535
/// (full). Calls are on the system's thread, short and synchronous. For a line or control that does
/// not exist the result is empty.
class MixerFunctions {
 public:
  virtual ~MixerFunctions() = default;

  virtual std::uint32_t GetNumDevs() = 0;

  /// These two return `kMixerNoError`, or an error number of the published interface:
  /// `kMixerBadDevice` for a device that does not exist. Each opening gives a handle of its own.
  virtual std::uint32_t Open(std::uint32_t device, std::uint32_t& handle) = 0;
  virtual std::uint32_t GetDevCaps(std::uint32_t device, MixerCaps& caps) = 0;

  virtual std::optional<MixerLineInfo> GetDestination(std::uint32_t handle,
                                                      std::uint32_t destination) = 0;
  virtual std::optional<MixerLineInfo> GetSource(std::uint32_t handle, std::uint32_t destination,
                                                 std::uint32_t source) = 0;
  virtual std::optional<MixerLineInfo> GetLineOfType(std::uint32_t handle,
                                                     std::uint32_t componentType) = 0;

  /// Id of the control of type `controlType` on the line; never 0.
  virtual std::optional<std::uint32_t> GetLineControl(std::uint32_t handle, std::uint32_t lineId,
                                                      std::uint32_t controlType) = 0;

  /// One value per channel; empty when the control does not exist or has fewer channels.
  virtual std::vector<std::uint32_t> GetControlDetails(std::uint32_t handle,
                                                       std::uint32_t controlId,
                                                       std::uint32_t channels) = 0;

  /// Sets one value per channel; a single value applies to all channels. A volume above full counts
  /// as full, and any mute but 0 as 1. Returns `kMixerNoError`, or what the control refused without
  /// a change: `kMixerInvalidHandle`, `kMixerInvalidControl` for a meter and for a control that
  /// does not exist, `kMixerInvalidParameter` for any other number of values, or an error of the
  /// card.
  virtual std::uint32_t SetControlDetails(std::uint32_t handle, std::uint32_t controlId,
                                          const std::vector<std::uint32_t>& values) = 0;

  virtual void Close(std::uint32_t handle) = 0;
};

}  // namespace marlex
