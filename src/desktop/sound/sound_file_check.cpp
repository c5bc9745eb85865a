#include "desktop/sound/sound_file_check.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

#include "desktop/files/file_descriptor.h"
#include "desktop/files/found_path.h"
#include "desktop/sound/mp3_frames.h"
#include "desktop/sound/sound_file.h"
#include "desktop/sound/steady_time.h"
#include "desktop/sound/wav_decoder.h"

namespace marlex {
namespace {

constexpr std::int64_t kAgainUs = 2 * kUsPerSecond;    // between two inspections of a file
constexpr std::int64_t kDeadUs = 5 * kUsPerSecond;     // without an answer of its drive
constexpr std::int64_t kForgetUs = 60 * kUsPerSecond;  // after the last question
constexpr auto kFarewell = std::chrono::seconds(1);    // the destructor waits for the thread

using IsPlayable = bool (*)(const std::string& path);

/// Stops at the first frames: measuring the length could mean reading the whole file.
bool IsMp3(const std::string& path) {
  SoundFile file;
  Mp3Start start;
  return file.Open(path) && FindMp3Start(file, start);
}

bool IsWav(const std::string& path) { return OpenWav(path) != nullptr; }

bool IsFile(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(FoundPath(path), ignored);
}

IsPlayable TestOf(MediumKind kind) {
  switch (kind) {
    case MediumKind::Song:
      return IsMp3;
    case MediumKind::Message:
      return IsWav;
    case MediumKind::TextFile:
      break;
  }
  return IsFile;
}

/// What changes whenever the contents of a file, its place or its rights do.
struct Stamp {
  dev_t Drive = 0;
  ino_t Number = 0;
  off_t Size = 0;
  std::int64_t WrittenNs = 0;
  std::int64_t ChangedNs = 0;

  bool operator==(const Stamp&) const = default;
};

std::int64_t NanosecondsOf(const timespec& time) {
  return std::int64_t(time.tv_sec) * kUsPerSecond * kNsPerUs + time.tv_nsec;
}

struct Inspection {
  MediaState State = MediaState::Unknown;
  std::optional<Stamp> Of;  // empty for a file that could not be opened
};

/// What has become of a file since the `former` inspection.
Inspection Inspect(const std::string& path, IsPlayable isPlayable, const Inspection& former) {
  const FileDescriptor file(
      ::open(FoundPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  const int error = errno;
  struct stat facts = {};
  if (!file.IsOpen())
    return {error == ENOENT || error == ENOTDIR ? MediaState::Missing : MediaState::Unplayable, {}};
  if (::fstat(file.Get(), &facts) != 0) return {MediaState::Unplayable, {}};
  const Stamp stamp = {facts.st_dev, facts.st_ino, facts.st_size, NanosecondsOf(facts.st_mtim),
                       NanosecondsOf(facts.st_ctim)};
  // A bad file is read again: the drive may have been at fault.
  if (former.State == MediaState::Good && former.Of == stamp) return former;
  return {isPlayable(path) ? MediaState::Good : MediaState::Unplayable, stamp};
}

}  // namespace

/// Shared with the thread, which may hang on a dead drive when the check ends.
class SoundFileCheck::Body {
 public:
  MediaState Ask(const std::string& path, IsPlayable isPlayable);
  void Run();
  void Quit();

 private:
  struct Entry {
    IsPlayable Test = nullptr;
    Inspection Last;
    std::int64_t AskedUs = 0;
    std::int64_t InspectedUs = 0;  // 0 for never
  };
  using Entries = std::map<std::string, Entry>;

  static bool IsDue(const Entry& entry) {
    return entry.InspectedUs == 0 || entry.AskedUs - entry.InspectedUs >= kAgainUs;
  }
  Entries::iterator NextDue();
  void InspectNext(std::unique_lock<std::mutex>& lock, const std::string& path);
  void ForgetOld();

  std::mutex Guard;
  std::condition_variable Changed;
  Entries Files;
  std::string Busy;  // the file that is being inspected; empty if none
  std::int64_t BusySinceUs = 0;
  bool Quitting = false;
  bool HasQuit = false;
};

MediaState SoundFileCheck::Body::Ask(const std::string& path, IsPlayable isPlayable) {
  const std::scoped_lock lock(Guard);
  Entry& entry = Files[path];
  entry.Test = isPlayable;
  entry.AskedUs = SteadyUs();
  if (path == Busy && entry.AskedUs - BusySinceUs >= kDeadUs) return MediaState::Unplayable;
  if (path != Busy && IsDue(entry)) Changed.notify_all();
  return entry.Last.State;
}

void SoundFileCheck::Body::Run() {
  std::unique_lock lock(Guard);
  while (!Quitting) {
    const auto due = NextDue();
    if (due == Files.end()) {
      ForgetOld();
      Changed.wait(lock);
    } else {
      InspectNext(lock, due->first);
    }
  }
  HasQuit = true;
  Changed.notify_all();
}

/// Of the files that are due, the one that was inspected longest ago.
SoundFileCheck::Body::Entries::iterator SoundFileCheck::Body::NextDue() {
  auto next = Files.end();
  for (auto file = Files.begin(); file != Files.end(); ++file) {
    if (!IsDue(file->second)) continue;
    if (next == Files.end() || file->second.InspectedUs < next->second.InspectedUs) next = file;
  }
  return next;
}

void SoundFileCheck::Body::InspectNext(std::unique_lock<std::mutex>& lock,
                                       const std::string& path) {
  Busy = path;
  BusySinceUs = SteadyUs();
  const Entry entry = Files[Busy];
  lock.unlock();
  const Inspection inspection = Inspect(Busy, entry.Test, entry.Last);
  lock.lock();
  Files[Busy].Last = inspection;
  Files[Busy].InspectedUs = SteadyUs();
  Busy.clear();
}

void SoundFileCheck::Body::ForgetOld() {
  const std::int64_t now = SteadyUs();
  std::erase_if(Files, [now](const auto& file) { return now - file.second.AskedUs >= kForgetUs; });
}

void SoundFileCheck::Body::Quit() {
  std::unique_lock lock(Guard);
  Quitting = true;
  Changed.notify_all();
  Changed.wait_for(lock, kFarewell, [this] { return HasQuit; });
}

SoundFileCheck::SoundFileCheck() : Inside(std::make_shared<Body>()) {
  std::thread([body = Inside] { body->Run(); }).detach();
}

SoundFileCheck::~SoundFileCheck() { Inside->Quit(); }

const std::vector<MediaState>& SoundFileCheck::States() {
  Known.clear();
  for (const WatchedFile& file : Watched)
    Known.push_back(Inside->Ask(file.Path, TestOf(file.Kind)));
  return Known;
}

}  // namespace marlex
