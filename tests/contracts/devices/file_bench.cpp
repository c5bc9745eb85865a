#include "contracts/devices/file_bench.h"

#include <sys/stat.h>

#include <QDir>
#include <filesystem>

#include "desktop/files/disk_directories.h"
#include "desktop/files/disk_profile_files.h"
#include "desktop/files/forked_child.h"
#include "desktop/files/temporary_directory.h"
#include "simulation/simulated_pc.h"

namespace marlex::test {

namespace {

class SimulatedFileBench : public FileBench {
 public:
  SimulatedFileBench() { Pc.Disk.AddDirectory("/bench"); }

  Directories& Files() override { return Pc.Disk; }
  ProfileFiles& Profiles() override { return Pc.Profiles; }

  std::string Path(const std::string& name) const override { return "/bench/" + name; }
  void Write(const std::string& name, std::string_view text) override {
    Pc.Disk.AddFile(Path(name), std::string(text));
  }
  std::string Read(const std::string& name) override {
    return Pc.Disk.Read(Path(name)).value_or("");
  }
  void MakeDirectory(const std::string& name) override { Pc.Disk.AddDirectory(Path(name)); }
  void Remove(const std::string& file) override { Pc.Disk.Remove(Path(file)); }
  int Entries(const std::string& directory) override {
    const std::string path = Path(directory);
    return static_cast<int>(Pc.Disk.List(path, "*").size() + Pc.Disk.Subdirectories(path).size());
  }

  bool WhileUnreadable(const std::string& name, const std::function<bool()>& check) override {
    Pc.Disk.FailReads(Path(name));
    const bool held = check();
    Pc.Disk.Heal(Path(name));
    return held;
  }
  bool WhileUnwritable(const std::string& name, const std::function<bool()>& check) override {
    Pc.Disk.FailWrites(Path(name));
    const bool held = check();
    Pc.Disk.Heal(Path(name));
    return held;
  }

  void Mount(const std::vector<std::string>& places) override {
    for (const std::string& place : places) {
      Pc.Disk.AddDrive(place);
      Pc.Disk.Vanish(place);
    }
  }
  std::string Home() const override { return MemoryDisk::kHome; }

 private:
  SimulatedPc Pc;
};

class RealFileBench : public FileBench {
 public:
  RealFileBench() { ::chmod(Disk.Path().c_str(), kEverything); }

  Directories& Files() override { return TheFiles; }
  ProfileFiles& Profiles() override { return TheProfiles; }

  std::string Path(const std::string& name) const override { return Disk.Path(name); }
  void Write(const std::string& name, std::string_view text) override {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    Disk.Write(name, text);
  }
  std::string Read(const std::string& name) override { return Disk.Read(name); }
  void MakeDirectory(const std::string& name) override {
    std::filesystem::create_directories(Path(name));
  }
  void Remove(const std::string& file) override { std::filesystem::remove(Path(file)); }
  int Entries(const std::string& directory) override {
    const std::filesystem::directory_iterator first(Path(directory));
    return static_cast<int>(std::distance(first, std::filesystem::directory_iterator()));
  }

  bool WhileUnreadable(const std::string& name, const std::function<bool()>& check) override {
    return Without(0444, name, check);
  }
  bool WhileUnwritable(const std::string& name, const std::function<bool()>& check) override {
    return Without(0222, name, check);
  }

  void Mount(const std::vector<std::string>& places) override {
    std::string lines;
    for (const std::string& place : places) {
      lines += "device ";
      for (const char c : place) lines += c == '\n' ? "\\012" : c == ' ' ? "\\040" : std::string{c};
      lines += " vfat rw 0 0\n";
    }
    Table.Write("mounts", lines);
  }
  std::string Home() const override { return QDir::homePath().toStdString(); }

 private:
  static constexpr mode_t kEverything = 0777;

  /// What root may do is no matter of modes, so `check` runs in a process of somebody else's.
  bool Without(mode_t rights, const std::string& name, const std::function<bool()>& check) {
    ::chmod(Path(name).c_str(), kEverything & ~rights);
    const bool held = TrueInAChild([&] { return BecomeNobody() && check(); });
    ::chmod(Path(name).c_str(), kEverything);
    return held;
  }

  TemporaryDirectory Disk;
  TemporaryDirectory Table;
  DiskDirectories TheFiles{Table.Path("mounts")};
  DiskProfileFiles TheProfiles;
};

}  // namespace

std::unique_ptr<FileBench> MakeFileBench(PcKind pc) {
  if (pc == PcKind::Simulated) return std::make_unique<SimulatedFileBench>();
  return std::make_unique<RealFileBench>();
}

}  // namespace marlex::test
