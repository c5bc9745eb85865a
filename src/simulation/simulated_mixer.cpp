#include "simulation/simulated_mixer.h"

#include <algorithm>
#include <utility>

namespace marlex {

namespace {

// Error number of the published multimedia interface.
constexpr std::uint32_t kNotSupported = 8;

// Size of the id range of a destination: the destination itself and its sources.
constexpr std::uint32_t kLinesOfDestination = 256;
// Size of the id range of a line: its controls are numbered 1 to 3.
constexpr std::uint32_t kControlsOfLine = 4;
constexpr std::uint32_t kFullLevel = 65535;

constexpr std::array kControlTypes = {kControlVolume, kControlMute, kControlPeakMeter};

bool HasControl(const SimulatedLine& line, std::uint32_t controlType) {
  if (controlType == kControlVolume) return line.HasVolume;
  if (controlType == kControlMute) return line.HasMute;
  return controlType == kControlPeakMeter && line.HasMeter;
}

MixerLineInfo Describe(const SimulatedLine& line, std::uint32_t id, std::size_t connections) {
  return {id, line.ComponentType, line.Channels, static_cast<std::uint32_t>(connections),
          line.Name};
}

std::uint32_t LineId(std::size_t destination, std::size_t line) {
  return static_cast<std::uint32_t>(destination * kLinesOfDestination + line);
}

std::string ShortName(const SimulatedLine& line) {
  if (line.ComponentType == kComponentSpeakers) return "speakers";
  if (line.ComponentType == kComponentMicrophone) return "microphone";
  if (line.ComponentType == kComponentWaveOut) return "wave";
  return line.Name;
}

}  // namespace

SimulatedMixer::SimulatedMixer(Journal& journal) : Log(journal) {
  SimulatedDestination speakers{{kComponentSpeakers, "Speakers"}, {}};
  speakers.Sources.push_back({kComponentWaveOut, "Wave"});
  speakers.Sources.push_back({kComponentMicrophone, "Microphone", 1});
  speakers.Sources.back().Mute = 1;
  SimulatedMixerDevice device;
  device.Destinations.push_back(std::move(speakers));
  Devices.push_back(std::move(device));
}

std::uint32_t SimulatedMixer::Open(std::uint32_t device, std::uint32_t& handle) {
  if (OpenResult != kMixerNoError) return OpenResult;
  if (device >= Devices.size()) return kMixerBadDevice;
  handle = ++LastHandle;
  OpenHandles[handle] = device;
  Log.Write("mixer", "open");
  return kMixerNoError;
}

std::uint32_t SimulatedMixer::GetDevCaps(std::uint32_t device, MixerCaps& caps) {
  if (CapsResult != kMixerNoError) return CapsResult;
  if (device >= Devices.size()) return kMixerBadDevice;
  caps = {Devices[device].ProductName,
          static_cast<std::uint32_t>(Devices[device].Destinations.size())};
  return kMixerNoError;
}

std::optional<MixerLineInfo> SimulatedMixer::GetDestination(std::uint32_t handle,
                                                            std::uint32_t destination) {
  const SimulatedMixerDevice* device = Device(handle);
  if (!device || destination >= device->Destinations.size()) return std::nullopt;
  const SimulatedDestination& found = device->Destinations[destination];
  return Describe(found.Line, LineId(destination, 0), found.Sources.size());
}

std::optional<MixerLineInfo> SimulatedMixer::GetSource(std::uint32_t handle,
                                                       std::uint32_t destination,
                                                       std::uint32_t source) {
  const SimulatedMixerDevice* device = Device(handle);
  if (!device || destination >= device->Destinations.size()) return std::nullopt;
  const SimulatedDestination& found = device->Destinations[destination];
  if (source >= found.Sources.size() || LostSources.contains(source)) return std::nullopt;
  return Describe(found.Sources[source], LineId(destination, source + 1), 0);
}

std::optional<MixerLineInfo> SimulatedMixer::GetLineOfType(std::uint32_t handle,
                                                           std::uint32_t componentType) {
  const SimulatedMixerDevice* device = Device(handle);
  if (!device || HiddenTypes.contains(componentType)) return std::nullopt;
  for (std::uint32_t d = 0; d < device->Destinations.size(); ++d) {
    const SimulatedDestination& destination = device->Destinations[d];
    if (destination.Line.ComponentType == componentType) return GetDestination(handle, d);
    for (std::uint32_t s = 0; s < destination.Sources.size(); ++s) {
      if (destination.Sources[s].ComponentType == componentType) return GetSource(handle, d, s);
    }
  }
  return std::nullopt;
}

std::optional<std::uint32_t> SimulatedMixer::GetLineControl(std::uint32_t handle,
                                                            std::uint32_t lineId,
                                                            std::uint32_t controlType) {
  const SimulatedLine* line = LineById(handle, lineId);
  if (!line || !HasControl(*line, controlType)) return std::nullopt;
  const auto type = std::find(kControlTypes.begin(), kControlTypes.end(), controlType);
  const auto number = static_cast<std::uint32_t>(type - kControlTypes.begin()) + 1;
  return lineId * kControlsOfLine + number;
}

std::vector<std::uint32_t> SimulatedMixer::GetControlDetails(std::uint32_t handle,
                                                             std::uint32_t controlId,
                                                             std::uint32_t channels) {
  const std::optional<Control> control = ControlById(handle, controlId);
  if (!control || UnreadableTypes.contains(control->Type)) return {};
  if (channels > control->Line->Channels) return {};
  std::vector<std::uint32_t> values(channels, control->Line->Mute);
  if (control->Type == kControlMute) return values;
  const auto& levels =
      control->Type == kControlVolume ? control->Line->Volume : control->Line->Peak;
  for (std::size_t c = 0; c < values.size(); ++c)
    values[c] = levels[std::min(c, levels.size() - 1)];
  return values;
}

std::uint32_t SimulatedMixer::SetControlDetails(std::uint32_t handle, std::uint32_t controlId,
                                                const std::vector<std::uint32_t>& values) {
  const std::optional<Control> control = ControlById(handle, controlId);
  if (!OpenHandles.contains(handle)) return kMixerInvalidHandle;
  if (!control || control->Type == kControlPeakMeter) return kMixerInvalidControl;
  if (values.size() != 1 && values.size() != control->Line->Channels) return kMixerInvalidParameter;
  if (RefusesSettings) {
    MissedSettings.insert({control->Line, control->Type});
    return kNotSupported;
  }
  MissedSettings.erase({control->Line, control->Type});
  if (control->Type == kControlVolume) {
    SetVolume(*control->Line, values);
  } else {
    SetMute(*control->Line, values.front() != 0);
  }
  return kMixerNoError;
}

void SimulatedMixer::Close(std::uint32_t handle) {
  if (OpenHandles.erase(handle) > 0) Log.Write("mixer", "close");
}

SimulatedLine* SimulatedMixer::Line(std::uint32_t componentType) {
  return const_cast<SimulatedLine*>(std::as_const(*this).Line(componentType));
}

const SimulatedLine* SimulatedMixer::Line(std::uint32_t componentType) const {
  if (Devices.empty()) return nullptr;
  for (const SimulatedDestination& destination : Devices.front().Destinations) {
    if (destination.Line.ComponentType == componentType) return &destination.Line;
    for (const SimulatedLine& source : destination.Sources) {
      if (source.ComponentType == componentType) return &source;
    }
  }
  return nullptr;
}

std::uint32_t SimulatedMixer::Level(std::uint32_t componentType) const {
  const SimulatedLine* line = Line(componentType);
  if (!line) return 0;
  return line->Channels < 2 ? line->Volume[0] : std::max(line->Volume[0], line->Volume[1]);
}

bool SimulatedMixer::Muted(std::uint32_t componentType) const {
  const SimulatedLine* line = Line(componentType);
  return !line || line->Mute != 0;
}

SimulatedLine& SimulatedMixer::AddSource(std::uint32_t componentType, const std::string& name,
                                         std::uint32_t channels) {
  std::vector<SimulatedLine>& sources = Devices.front().Destinations.front().Sources;
  sources.push_back({componentType, name, channels});
  return sources.back();
}

SimulatedMixerDevice* SimulatedMixer::Device(std::uint32_t handle) {
  const auto opened = OpenHandles.find(handle);
  const bool there = opened != OpenHandles.end() && opened->second < Devices.size();
  return there ? &Devices[opened->second] : nullptr;
}

SimulatedLine* SimulatedMixer::LineById(std::uint32_t handle, std::uint32_t lineId) {
  SimulatedMixerDevice* device = Device(handle);
  const std::uint32_t destination = lineId / kLinesOfDestination;
  const std::uint32_t line = lineId % kLinesOfDestination;
  if (!device || destination >= device->Destinations.size()) return nullptr;
  SimulatedDestination& found = device->Destinations[destination];
  if (line == 0) return &found.Line;
  return line <= found.Sources.size() ? &found.Sources[line - 1] : nullptr;
}

std::optional<SimulatedMixer::Control> SimulatedMixer::ControlById(std::uint32_t handle,
                                                                   std::uint32_t controlId) {
  const std::uint32_t number = controlId % kControlsOfLine;
  SimulatedLine* line = LineById(handle, controlId / kControlsOfLine);
  if (!line || number == 0) return std::nullopt;
  const std::uint32_t type = kControlTypes[number - 1];
  if (!HasControl(*line, type)) return std::nullopt;
  return Control{line, type};
}

void SimulatedMixer::SetVolume(SimulatedLine& line, const std::vector<std::uint32_t>& values) {
  const auto level = [](std::uint32_t value) { return std::min(value, kFullLevel); };
  line.Volume = {level(values.front()), level(values.back())};
  if (!Log.Records("mixer")) return;
  std::string text = "volume " + ShortName(line);
  for (const std::uint32_t value : values) text += " " + std::to_string(value);
  Log.Write("mixer", text);
}

void SimulatedMixer::SetMute(SimulatedLine& line, bool muted) {
  line.Mute = muted ? 1 : 0;
  Log.Write("mixer", "mute " + ShortName(line) + " " + std::to_string(line.Mute));
}

}  // namespace marlex
