#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/failing_calls.h"

namespace marlex {

// Ports that pass each call on to the simulated PC, except for the one that is to fail.

class FailingProfiles : public ProfileFiles {
 public:
  FailingProfiles(FailingCalls& calls, ProfileFiles& own) : Calls(calls), Own(own) {}
  std::string GetString(const std::string& section, const std::string& key, const std::string& file,
                        std::size_t maxCharacters) const override;
  std::vector<std::string> GetNumbered(const std::string& section, const std::string& keyPrefix,
                                       const std::string& file,
                                       std::size_t maxCharacters) const override;
  Writing WriteStrings(const std::vector<ProfileEntry>& entries, const std::string& file) override;
  bool Rebuild(const std::vector<ProfileEntry>& entries, const std::string& file) override;

 private:
  FailingCalls& Calls;
  ProfileFiles& Own;
};

class FailingDirectories : public Directories {
 public:
  FailingDirectories(FailingCalls& calls, Directories& own) : Calls(calls), Own(own) {}
  std::string Search(const std::string& path) const override;
  std::vector<std::string> List(const std::string& directory,
                                const std::string& pattern) const override;
  std::vector<std::string> Drives() const override;
  bool HasDirectory(const std::string& path) const override;
  std::vector<std::string> Subdirectories(const std::string& directory) const override;

 private:
  Directories& With() const;

  FailingCalls& Calls;
  Directories& Own;
};

/// A call that fails has found the device gone; it is found again a second later.
class FailingSerial : public SerialPort {
 public:
  FailingSerial(FailingCalls& calls, SimulatedSerial& own);
  void SetCommPort(int number) override { Own.SetCommPort(number); }
  int CommPort() const override { return Own.CommPort(); }
  void SetPortOpen(bool open) override;
  bool PortOpen() const override { return Own.PortOpen(); }
  bool Connected() const override;
  int InBufferCount() const override { return Own.InBufferCount(); }
  std::string Input() override { return Own.Input(); }
  void Output(std::string_view bytes) override;

 private:
  void Receive();

  FailingCalls& Calls;
  SimulatedSerial& Own;
};

/// An opening or a start that fails finds no file, and one that breaks off a file with only the
/// first third of its sound.
class FailingWavePlayer : public WavePlayer {
 public:
  FailingWavePlayer(FailingCalls& calls, WavePlayer& own, MemoryDisk& disk, std::string name);
  void Command(std::string_view command) override;
  int Mode() const override { return Own.Mode(); }
  long Length() const override;

 private:
  FailingCalls& Calls;
  WavePlayer& Own;
  MemoryDisk& Disk;
  const std::string OpenCall, PlayCall, ReadCall, LengthCall;
};

/// The same for songs.
class FailingSongPlayer : public SongPlayer {
 public:
  FailingSongPlayer(FailingCalls& calls, SongPlayer& own, MemoryDisk& disk);
  void SetFileName(const std::string& path) override;
  std::string FileName() const override { return Own.FileName(); }
  double Duration() const override;
  double CurrentPosition() const override { return Own.CurrentPosition(); }
  int PlayState() const override { return Own.PlayState(); }
  void Play() override;
  void Pause() override { Own.Pause(); }
  void Stop() override { Own.Stop(); }

 private:
  FailingCalls& Calls;
  SongPlayer& Own;
  MemoryDisk& Disk;
};

class FailingSoundHealth : public SoundHealth {
 public:
  FailingSoundHealth(FailingCalls& calls, SoundHealth& own) : Calls(calls), Own(own) {}
  SoundOutlet Outlet() const override;
  bool MicrophoneIsGone() const override;

 private:
  FailingCalls& Calls;
  SoundHealth& Own;
};

class FailingMediaCheck : public MediaCheck {
 public:
  FailingMediaCheck(FailingCalls& calls, MediaCheck& own) : Calls(calls), Own(own) {}
  void Watch(std::vector<WatchedFile> files) override;
  const std::vector<MediaState>& States() override;

 private:
  FailingCalls& Calls;
  MediaCheck& Own;
  std::vector<WatchedFile> Watched;
  std::vector<MediaState> Reported;
};

class FailingMixer : public MixerFunctions {
 public:
  FailingMixer(FailingCalls& calls, SimulatedMixer& own) : Calls(calls), Own(own) {}
  std::uint32_t GetNumDevs() override;
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
  void Close(std::uint32_t handle) override { Own.Close(handle); }

 private:
  bool HidesALine(const char* operation, std::uint32_t handle);
  void Refuse(std::uint32_t handle, std::uint32_t componentType, std::uint32_t controlType);

  FailingCalls& Calls;
  SimulatedMixer& Own;
};

/// A message box that fails is not answered until the test does, and a file dialog is cancelled.
class FailingDialogs : public Dialogs {
 public:
  FailingDialogs(FailingCalls& calls, SimulatedDialogs& own) : Calls(calls), Own(own) {}

 protected:
  void ShowBox(const std::string& body, BoxIcon icon, const std::string& caption) override;
  void OpenBox(const std::string& body, BoxIcon icon, const std::string& caption,
               std::function<void()> onAnswer) override;
  void OpenFileDialog(const FileDialog& dialog, OnChosen onChosen) override;

 private:
  FailingCalls& Calls;
  SimulatedDialogs& Own;
};

}  // namespace marlex
