#include "contracts/devices/player_bench.h"

#include <filesystem>
#include <limits>
#include <optional>

#include "desktop/files/slow_drive.h"
#include "desktop/sound/offline_desk.h"
#include "desktop/sound/sound_file_check.h"
#include "simulation/simulated_pc.h"

namespace marlex {

namespace {

class SimulatedPlayerBench : public PlayerBench {
 public:
  WavePlayer& Wave() override { return Pc.Wav; }
  SongPlayer& Song() override { return Pc.Song; }
  MediaCheck& Check() override { return Pc.Media; }

  void Advance(int ms) override { Pc.Loop.RunFor(ms); }

  std::string Wav(const std::string& name, int lengthMs) override {
    Pc.Disk.AddWav(Path(name), lengthMs);
    return Path(name);
  }
  std::string Mp3(const std::string& name, int lengthMs) override {
    Pc.Disk.AddMp3(Path(name), lengthMs);
    return Path(name);
  }
  std::string Noise(const std::string& name) override {
    Pc.Disk.AddBroken(Path(name));
    return Path(name);
  }
  std::string Path(const std::string& name) const override { return "/media/" + name; }
  void Remove(const std::string& path) override { Pc.Disk.Remove(path); }

  void HoldLengths() override { Delay(std::numeric_limits<int>::max()); }
  void LetLengthsArrive() override { Delay(0); }

 private:
  void Delay(int ms) {
    Pc.Wav.SetLengthDelay(ms);
    Pc.Song.SetLengthDelay(ms);
  }

  SimulatedPc Pc;
};

class RealPlayerBench : public PlayerBench {
 public:
  WavePlayer& Wave() override { return Desk.Wave; }
  SongPlayer& Song() override { return Desk.Song; }
  MediaCheck& Check() override { return RealCheck; }

  void Advance(int ms) override { Desk.Render(ms * kFramesPerSecond / 1000); }

  std::string Wav(const std::string& name, int lengthMs) override {
    return Desk.Files.Wav(name, lengthMs / 1000.0);
  }
  std::string Mp3(const std::string& name, int lengthMs) override {
    return Desk.Files.Mp3(name, lengthMs / 1000.0);
  }
  std::string Noise(const std::string& name) override {
    return Desk.Files.Write(name, marlex::Noise(10'000));
  }
  std::string Path(const std::string& name) const override { return Desk.Files.Path(name); }
  void Remove(const std::string& path) override { std::filesystem::remove(path); }

  void HoldLengths() override { Drive.emplace(Desk.Files.Path("")); }
  void LetLengthsArrive() override {
    Drive.reset();
    const auto known = [this] { return Desk.Song.Duration() > 0 || Desk.Wave.Length() > 0; };
    Desk.Loop.Within(std::chrono::seconds(30), known);
  }

 private:
  static constexpr int kFramesPerSecond = 44100;

  OfflineDesk Desk;
  SoundFileCheck RealCheck;
  std::optional<test::SlowDrive> Drive;
};

}  // namespace

std::unique_ptr<PlayerBench> MakePlayerBench(PcKind pc) {
  if (pc == PcKind::Simulated) return std::make_unique<SimulatedPlayerBench>();
  return std::make_unique<RealPlayerBench>();
}

}  // namespace marlex
