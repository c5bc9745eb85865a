#include "scenario/failing_ports.h"

#include <utility>

namespace marlex {

namespace {

constexpr int kFirstPart = 3;  // of the sound of a file that breaks off

/// A file that is gone while this lives.
class Vanished {
 public:
  Vanished(MemoryDisk& disk, std::string path) : Disk(disk), Path(std::move(path)) {
    Disk.Vanish(Path);
  }
  Vanished(const Vanished&) = delete;
  Vanished& operator=(const Vanished&) = delete;
  ~Vanished() { Disk.Return(Path); }

 private:
  MemoryDisk& Disk;
  const std::string Path;
};

/// A sound file that breaks off while this lives.
class BrokenOff {
 public:
  BrokenOff(MemoryDisk& disk, const std::string& path, MediaKind kind)
      : Disk(disk), Path(disk.Found(path)), Kind(kind), LengthMs(disk.MediaLengthMs(path, kind)) {
    if (LengthMs) Put(*LengthMs / kFirstPart);
  }
  BrokenOff(const BrokenOff&) = delete;
  BrokenOff& operator=(const BrokenOff&) = delete;
  ~BrokenOff() {
    if (LengthMs) Put(*LengthMs);
  }

 private:
  void Put(int lengthMs) {
    Kind == MediaKind::Wav ? Disk.AddWav(Path, lengthMs) : Disk.AddMp3(Path, lengthMs);
  }

  MemoryDisk& Disk;
  const std::string Path;
  const MediaKind Kind;
  const std::optional<int> LengthMs;
};

const char* NameOf(MediumKind kind) {
  switch (kind) {
    case MediumKind::Song:
      return "media song";
    case MediumKind::Message:
      return "media message";
    case MediumKind::TextFile:
      break;
  }
  return "media text";
}

}  // namespace

std::string FailingProfiles::GetString(const std::string& section, const std::string& key,
                                       const std::string& file, std::size_t maxCharacters) const {
  if (Calls.Fails("profile read")) return "";
  return Own.GetString(section, key, file, maxCharacters);
}

std::vector<std::string> FailingProfiles::GetNumbered(const std::string& section,
                                                      const std::string& keyPrefix,
                                                      const std::string& file,
                                                      std::size_t maxCharacters) const {
  if (Calls.Fails("profile read of a list")) return {};
  return Own.GetNumbered(section, keyPrefix, file, maxCharacters);
}

Writing FailingProfiles::WriteStrings(const std::vector<ProfileEntry>& entries,
                                      const std::string& file) {
  if (Calls.Fails("profile write")) return Writing::Failed;
  return Own.WriteStrings(entries, file);
}

bool FailingProfiles::Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) {
  return !Calls.Fails("profile rebuild") && Own.Rebuild(entries, file);
}

/// The PC's own directories, for the code page that the system has chosen.
Directories& FailingDirectories::With() const {
  Own.NamesIn = NamesIn;
  return Own;
}

std::string FailingDirectories::Search(const std::string& path) const {
  return Calls.Fails("directory search") ? "" : With().Search(path);
}

std::vector<std::string> FailingDirectories::List(const std::string& directory,
                                                  const std::string& pattern) const {
  if (Calls.Fails("directory list")) return {};
  return With().List(directory, pattern);
}

/// The mount table cannot be read.
std::vector<std::string> FailingDirectories::Drives() const {
  if (Calls.Fails("directory drives")) return {MemoryDisk::kHome, std::string(1, kSeparator)};
  return With().Drives();
}

bool FailingDirectories::HasDirectory(const std::string& path) const {
  return !Calls.Fails("directory look") && With().HasDirectory(path);
}

std::vector<std::string> FailingDirectories::Subdirectories(const std::string& directory) const {
  if (Calls.Fails("directory folders")) return {};
  return With().Subdirectories(directory);
}

FailingSerial::FailingSerial(FailingCalls& calls, SimulatedSerial& own) : Calls(calls), Own(own) {
  Own.OnComm = [this] { Receive(); };
  Own.OnFault = [this](const std::string& text) {
    if (OnFault) OnFault(text);
  };
}

void FailingSerial::SetPortOpen(bool open) {
  const bool fails = open && Calls.Fails("serial open");
  if (fails) Own.Unplug();
  Own.SetPortOpen(open);
  if (fails) Own.Plug();
}

bool FailingSerial::Connected() const { return !Calls.Fails("serial look") && Own.Connected(); }

/// What cannot be read is lost with the device.
void FailingSerial::Receive() {
  if (!Calls.Fails("serial read")) {
    if (OnComm) OnComm();
    return;
  }
  Own.Input();
  Own.Unplug();
  Own.Plug();
}

void FailingSerial::Output(std::string_view bytes) {
  const bool fails = Calls.Fails("serial write");
  if (fails) Own.Unplug();
  Own.Output(bytes);
  if (fails) Own.Plug();
}

FailingWavePlayer::FailingWavePlayer(FailingCalls& calls, WavePlayer& own, MemoryDisk& disk,
                                     std::string name)
    : Calls(calls),
      Own(own),
      Disk(disk),
      OpenCall(name + " open"),
      PlayCall(name + " play"),
      ReadCall(name + " read"),
      LengthCall(name + " length") {
  Own.OnDone = [this] {
    if (OnDone) OnDone();
  };
  Own.OnStatusUpdate = [this] {
    if (OnStatusUpdate) OnStatusUpdate();
  };
}

/// A start that fails finds that the file has gone since it was opened.
void FailingWavePlayer::Command(std::string_view command) {
  Own.FileName = FileName;
  std::optional<Vanished> gone;
  std::optional<BrokenOff> brokenOff;
  if (command == "Open") {
    if (Calls.Fails(OpenCall.c_str())) gone.emplace(Disk, Disk.Found(FileName));
    if (Calls.Fails(ReadCall.c_str())) brokenOff.emplace(Disk, FileName, MediaKind::Wav);
  }
  if (command != "Play" || !Calls.Fails(PlayCall.c_str())) return Own.Command(command);
  gone.emplace(Disk, Disk.Found(FileName));
  Own.Command("Close");
  Own.Command("Open");
}

/// As on a drive that is too slow.
long FailingWavePlayer::Length() const {
  return Calls.Fails(LengthCall.c_str()) ? 0 : Own.Length();
}

FailingSongPlayer::FailingSongPlayer(FailingCalls& calls, SongPlayer& own, MemoryDisk& disk)
    : Calls(calls), Own(own), Disk(disk) {
  Own.OnEndOfStream = [this] {
    if (OnEndOfStream) OnEndOfStream();
  };
}

void FailingSongPlayer::SetFileName(const std::string& path) {
  std::optional<Vanished> gone;
  std::optional<BrokenOff> brokenOff;
  if (!path.empty()) {
    if (Calls.Fails("song open")) gone.emplace(Disk, Disk.Found(path));
    if (Calls.Fails("song read")) brokenOff.emplace(Disk, path, MediaKind::Mp3);
  }
  Own.SetFileName(path);
}

double FailingSongPlayer::Duration() const {
  return Calls.Fails("song length") ? 0 : Own.Duration();
}

/// A song that starts finds its file gone. One that is resumed has it open.
void FailingSongPlayer::Play() {
  const bool starts = Own.PlayState() == kStopped && !Own.FileName().empty();
  if (!starts || !Calls.Fails("song play")) Own.Play();
}

SoundOutlet FailingSoundHealth::Outlet() const {
  return Calls.Fails("sound outlet") ? SoundOutlet::Gone : Own.Outlet();
}

bool FailingSoundHealth::MicrophoneIsGone() const {
  return Calls.Fails("sound microphone") || Own.MicrophoneIsGone();
}

void FailingMediaCheck::Watch(std::vector<WatchedFile> files) {
  Watched = files;
  Own.Watch(std::move(files));
}

const std::vector<MediaState>& FailingMediaCheck::States() {
  Reported = Own.States();
  for (std::size_t file = 0; file < Reported.size(); ++file) {
    const MediumKind kind = Watched[file].Kind;
    if (Calls.Fails(NameOf(kind)))
      Reported[file] = kind == MediumKind::Message ? MediaState::Missing : MediaState::Unplayable;
  }
  return Reported;
}

std::uint32_t FailingMixer::GetNumDevs() {
  return Calls.Fails("mixer count") ? 0 : Own.GetNumDevs();
}

std::uint32_t FailingMixer::Open(std::uint32_t device, std::uint32_t& handle) {
  return Calls.Fails("mixer open") ? kMixerBadDevice : Own.Open(device, handle);
}

std::uint32_t FailingMixer::GetDevCaps(std::uint32_t device, MixerCaps& caps) {
  return Calls.Fails("mixer caps") ? kMixerBadDevice : Own.GetDevCaps(device, caps);
}

/// Counts a call that looks for a line or control. When it fails, the program may have to do
/// without any of them: the card then counts as refusing, until a setting reaches it.
bool FailingMixer::HidesALine(const char* operation, std::uint32_t handle) {
  if (!Calls.Fails(operation)) return false;
  for (const std::uint32_t line : {kComponentSpeakers, kComponentWaveOut, kComponentMicrophone}) {
    Refuse(handle, line, kControlVolume);
    Refuse(handle, line, kControlMute);
  }
  return true;
}

void FailingMixer::Refuse(std::uint32_t handle, std::uint32_t componentType,
                          std::uint32_t controlType) {
  const auto line = Own.GetLineOfType(handle, componentType);
  const auto control = line ? Own.GetLineControl(handle, line->LineId, controlType) : std::nullopt;
  Own.RefusesSettings = true;
  if (control) Own.SetControlDetails(handle, *control, {0});
  Own.RefusesSettings = false;
}

std::optional<MixerLineInfo> FailingMixer::GetDestination(std::uint32_t handle,
                                                          std::uint32_t destination) {
  if (HidesALine("mixer destination", handle)) return std::nullopt;
  return Own.GetDestination(handle, destination);
}

std::optional<MixerLineInfo> FailingMixer::GetSource(std::uint32_t handle,
                                                     std::uint32_t destination,
                                                     std::uint32_t source) {
  if (HidesALine("mixer source", handle)) return std::nullopt;
  return Own.GetSource(handle, destination, source);
}

std::optional<MixerLineInfo> FailingMixer::GetLineOfType(std::uint32_t handle,
                                                         std::uint32_t componentType) {
  if (HidesALine("mixer line", handle)) return std::nullopt;
  return Own.GetLineOfType(handle, componentType);
}

std::optional<std::uint32_t> FailingMixer::GetLineControl(std::uint32_t handle,
                                                          std::uint32_t lineId,
                                                          std::uint32_t controlType) {
  if (HidesALine("mixer control", handle)) return std::nullopt;
  return Own.GetLineControl(handle, lineId, controlType);
}

std::vector<std::uint32_t> FailingMixer::GetControlDetails(std::uint32_t handle,
                                                           std::uint32_t controlId,
                                                           std::uint32_t channels) {
  if (Calls.Fails("mixer get")) return {};
  return Own.GetControlDetails(handle, controlId, channels);
}

std::uint32_t FailingMixer::SetControlDetails(std::uint32_t handle, std::uint32_t controlId,
                                              const std::vector<std::uint32_t>& values) {
  Own.RefusesSettings = Calls.Fails("mixer set");
  const std::uint32_t result = Own.SetControlDetails(handle, controlId, values);
  Own.RefusesSettings = false;
  return result;
}

void FailingDialogs::ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) {
  Own.MsgBox(body, icon, caption);
}

void FailingDialogs::OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
                             std::function<void()> onAnswer) {
  const int before = Own.AnswerAfterMs;
  if (Calls.Fails("box")) Own.AnswerAfterMs = SimulatedDialogs::kNever;
  Own.LeaveMsgBox(body, icon, caption, std::move(onAnswer));
  Own.AnswerAfterMs = before;
}

void FailingDialogs::OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) {
  if (Calls.Fails("file dialog")) Own.OpenResults = {""};
  Own.LeaveOpen(dialog, std::move(onChosen));
}

}  // namespace marlex
