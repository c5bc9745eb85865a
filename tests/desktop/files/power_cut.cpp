#include "desktop/files/power_cut.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "desktop/files/temporary_directory.h"
#include "desktop/files/whole_file.h"

namespace marlex::test {

namespace {

namespace fs = std::filesystem;

std::string BytesOf(const FileDescriptor& file) {
  std::string bytes(1 << 16, '\0');
  const ssize_t count = ::pread(file.Get(), bytes.data(), bytes.size(), 0);
  bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  return bytes;
}

/// The bytes of one text up to an offset, and those of another one from there on.
std::string Joined(std::string front, const std::string& back, std::size_t at) {
  front.resize(std::min(at, std::max(front.size(), back.size())));
  return front + (at < back.size() ? back.substr(at) : "");
}

/// The same with a different length, as left by a disk that resized the file but wrote nothing.
std::string OfLength(std::string text, std::size_t length) {
  text.resize(length);
  return text;
}

}  // namespace

PowerCut::PowerCut(std::string directory) : Directory(std::move(directory)) {
  Look(true);
  for (auto& [number, file] : Files) file.Synced = BytesOf(file.Opened);
}

void PowerCut::Done(const std::string& call, const std::string& path) {
  Look(false);
  if (call != "fsync") return;
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return;
  if (S_ISDIR(status.st_mode)) {
    Look(true);
  } else if (const auto file = Files.find(status.st_ino); file != Files.end()) {
    file->second.Synced = BytesOf(file->second.Opened);
  }
}

/// Records which names have appeared, changed or disappeared.
void PowerCut::Look(bool synced) {
  std::map<std::string, ino_t> now;
  for (const fs::directory_entry& entry : fs::directory_iterator(Directory)) {
    struct stat status {};
    if (::stat(entry.path().c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    now[entry.path().filename().string()] = status.st_ino;
    if (!Files.contains(status.st_ino))
      Files.try_emplace(status.st_ino,
                        File{FileDescriptor(::open(entry.path().c_str(), O_RDONLY)), ""});
  }
  if (synced) Names.clear();
  for (const auto& [name, number] : now) {
    if (!synced && !Names.contains(name)) Names[name].insert(0);
    Names[name].insert(number);
  }
  for (auto& [name, numbers] : Names) {
    if (!now.contains(name)) numbers.insert(0);
  }
}

/// All contents that a file of this name may have.
PowerCut::Choices PowerCut::Contents(const std::string& name) const {
  Choices contents;
  const auto numbers = Names.find(name);
  if (numbers == Names.end()) return {std::nullopt};
  for (const ino_t number : numbers->second) {
    if (number == 0) {
      contents.insert(std::nullopt);
      continue;
    }
    const File& file = Files.at(number);
    const std::string& synced = file.Synced;
    const std::string written = BytesOf(file.Opened);
    contents.insert({synced, written, OfLength(synced, written.size())});
    for (const std::size_t at : {std::size_t{1}, written.size() / 2}) {
      contents.insert({Joined(synced, written, at), Joined(written, synced, at)});
    }
  }
  return contents;
}

std::set<std::optional<std::string>> PowerCut::Texts(const std::string& name) {
  std::set<std::optional<std::string>> texts;
  const std::string copy = "." + name + ".whole";
  for (const auto& content : Contents(name)) {
    for (const auto& copied : Contents(copy)) {
      const TemporaryDirectory disk(InMemory());
      if (content) disk.Write(name, *content);
      if (copied) disk.Write(copy, *copied);
      const WholeFile file = ReadWholeFile(disk.Path(name));
      texts.insert(file.State == FileState::Absent ? std::nullopt : std::optional(file.Text));
    }
  }
  return texts;
}

}  // namespace marlex::test
