#include "tidy/house_rules.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <regex>

namespace marlex {
namespace {

/// The floors of the house from the ground up. A folder may include those on lower floors; folders
/// on the same floor must not include each other.
const std::vector<std::vector<std::string>> kFloors = {{"amplifier", "text"},
                                                       {"platform"},
                                                       {"controls"},
                                                       {"state"},
                                                       {"windows"},
                                                       {"i18n"},
                                                       {"mixer"},
                                                       {"link"},
                                                       {"music"},
                                                       {"schedule"},
                                                       {"call"},
                                                       {"core"},
                                                       {"simulation", "desktop"},
                                                       {"app"}};

/// Folders that may use a real PC. The simulated PC may only have a thread of its own.
const std::vector<std::string> kAboveTheLine = {"desktop", "app"};
const std::string kSimulation = "simulation";

constexpr std::size_t kLongestLine = 100;
constexpr std::size_t kLongestFile = 500;

struct ForeignWord {
  std::regex Pattern;
  std::string Advice;
  bool InSimulationToo;
};

const std::vector<ForeignWord>& ForeignWordList() {
  static const std::vector<ForeignWord> words = {
      {std::regex(R"(^\s*#\s*include\s*<Q)"), "Qt: write to the controls of controls/ instead",
       true},
      {std::regex(R"(^\s*#\s*include\s*<pulse/)"),
       "PulseAudio: use SongPlayer, WavePlayer or MixerFunctions instead", true},
      {std::regex(R"(^\s*#\s*include\s*<alsa/)"), "ALSA: use MixerFunctions instead", true},
      {std::regex(R"(^\s*#\s*include\s*<(mpg123|sndfile|soxr))"),
       "sound files: use SongPlayer or WavePlayer instead", true},
      {std::regex(R"(^\s*#\s*include\s*<(termios|sys/ioctl|poll)\.h>)"),
       "a terminal: use SerialPort instead", true},
      {std::regex(R"(^\s*#\s*include\s*<(dirent|fcntl|sys/stat|glob)\.h>)"),
       "POSIX files: use ProfileFiles or Directories instead", true},
      {std::regex(R"(^\s*#\s*include\s*<(unistd|signal|sys/\w+|pthread)\.h>)"),
       "POSIX: use Process or EventLoop instead", true},
      {std::regex(R"(^\s*#\s*include\s*<[^>]*[./])"),
       "not the C++ standard library: add a port to platform/ instead", true},
      {std::regex(R"(\b(system|steady|high_resolution|utc|tai|gps|file)_clock\b)"),
       "a clock: use WallClock, or a Timer of EventLoop, instead", true},
      {std::regex(R"(^\s*#\s*include\s*<ctime>|\b(localtime|gmtime|std::time)\b)"),
       "a clock: use WallClock instead", true},
      {std::regex(R"(^\s*#\s*include\s*<(fstream|cstdio)>)"),
       "files: use ProfileFiles or Directories instead", true},
      {std::regex(R"(std::filesystem::(?!path::preferred_separator))"),
       "files: use Directories instead", true},
      {std::regex(R"(^\s*#\s*include\s*<iostream>|std::(cout|cerr|clog)\b)"),
       "a console: use Dialogs instead", true},
      {std::regex(R"(\b(getenv|std::system|std::exit|quick_exit|abort)\s*\()"),
       "the process: use Process instead", true},
      {std::regex(R"(^\s*#\s*include\s*<(thread|mutex|shared_mutex|atomic|future|semaphore)>)"
                  R"(|^\s*#\s*include\s*<(latch|barrier|condition_variable|stop_token)>)"),
       "threads: the system has one, use EventLoop instead", false}};
  return words;
}

const std::string kRoot = "src/";

std::string FolderOf(const std::string& path) {
  return path.substr(kRoot.size(), path.find('/', kRoot.size()) - kRoot.size());
}

std::string ModuleOf(const std::string& path) { return path.substr(0, path.rfind('.')); }

std::optional<std::size_t> FloorOf(const std::string& folder) {
  for (std::size_t floor = 0; floor < kFloors.size(); ++floor) {
    const auto& folders = kFloors[floor];
    if (std::find(folders.begin(), folders.end(), folder) != folders.end()) return floor;
  }
  return std::nullopt;
}

/// Path that a line includes; empty when it includes none, or a generated file.
std::string IncludedPath(const std::string& line) {
  static const std::regex include(R"re(^\s*#\s*include\s*"([^"]+)")re");
  std::smatch match;
  if (!std::regex_search(line, match, include)) return "";
  const std::string path = match[1];
  const bool generated =
      path.starts_with("ui_") || path.ends_with(".moc") || path.ends_with(".inc");
  return generated ? "" : kRoot + path;
}

std::string Complaint(const std::string& path, std::size_t line, const std::string& text) {
  return path + ":" + std::to_string(line) + ": " + text + "\n";
}

/// Calls `visit` with the path, the number (from 1) and the text of each line.
template <class Visit>
void ForEachLine(const SourceTree& sources, Visit visit) {
  for (const auto& [path, lines] : sources) {
    for (std::size_t i = 0; i < lines.size(); ++i) visit(path, i + 1, lines[i]);
  }
}

/// The modules that each module includes, each with the place of the line that includes it.
using IncludeGraph = std::map<std::string, std::map<std::string, std::string>>;

IncludeGraph GraphOf(const SourceTree& sources) {
  IncludeGraph graph;
  ForEachLine(sources, [&](const std::string& path, std::size_t number, const std::string& line) {
    const std::string included = IncludedPath(line);
    if (included.empty() || ModuleOf(included) == ModuleOf(path)) return;
    graph[ModuleOf(path)].emplace(ModuleOf(included), path + ":" + std::to_string(number));
  });
  return graph;
}

/// Depth-first search of the graph; meeting a module again on the way down means a cycle.
class CircleSearch {
 public:
  explicit CircleSearch(const IncludeGraph& graph) : Graph(graph) {
    for (const auto& [module, includes] : Graph) Visit(module);
  }
  std::string Circles;

 private:
  void Visit(const std::string& module) {
    const auto onTheWay = std::find(Way.begin(), Way.end(), module);
    if (onTheWay != Way.end()) return Describe(onTheWay);
    const auto includes = Graph.find(module);
    if (includes == Graph.end() || std::find(Done.begin(), Done.end(), module) != Done.end())
      return;
    Way.push_back(module);
    for (const auto& [next, place] : includes->second) Visit(next);
    Way.pop_back();
    Done.push_back(module);
  }

  void Describe(std::vector<std::string>::iterator from) {
    std::string circle = "a circle of includes:";
    for (auto module = from; module != Way.end(); ++module) {
      const std::string& next = module + 1 == Way.end() ? *from : *(module + 1);
      circle += " " + Graph.at(*module).at(next) + " includes " + next + ",";
    }
    circle.back() = ';';
    Circles += circle + " split the lower half of one off, or hand a callback in\n";
  }

  const IncludeGraph& Graph;
  std::vector<std::string> Way;
  std::vector<std::string> Done;
};

/// Counts characters, not bytes: continuation bytes of UTF-8 do not count.
std::size_t Characters(const std::string& line) {
  return static_cast<std::size_t>(std::count_if(line.begin(), line.end(), [](unsigned char byte) {
    constexpr unsigned char kContinuationMask = 0xC0;
    constexpr unsigned char kContinuation = 0x80;
    return (byte & kContinuationMask) != kContinuation;
  }));
}

}  // namespace

SourceTree ReadSources(const std::string& root, const std::string& directory) {
  SourceTree sources;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root + "/" + directory)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    std::ifstream file(entry.path());
    std::vector<std::string>& lines =
        sources[std::filesystem::relative(entry.path(), root).generic_string()];
    for (std::string line; std::getline(file, line);) lines.push_back(line);
  }
  return sources;
}

std::string ClimbingIncludes(const SourceTree& sources) {
  std::string complaints;
  for (const auto& [path, lines] : sources) {
    if (!FloorOf(FolderOf(path)))
      complaints += Complaint(path, 1, "no floor has this folder; give it one in kFloors");
  }
  ForEachLine(sources, [&](const std::string& path, std::size_t number, const std::string& line) {
    const std::string included = IncludedPath(line);
    if (included.empty()) return;
    if (!sources.contains(included)) {
      complaints += Complaint(path, number, included + " is not there; write includes from src/");
      return;
    }
    const std::string from = FolderOf(path);
    const std::string to = FolderOf(included);
    if (from == to || FloorOf(to) < FloorOf(from)) return;
    complaints +=
        Complaint(path, number,
                  "includes " + included + ", and " + to + "/ does not lie below " + from + "/");
  });
  return complaints;
}

std::string CircularIncludes(const SourceTree& sources) {
  const IncludeGraph graph = GraphOf(sources);
  return CircleSearch(graph).Circles;
}

std::string ForeignWords(const SourceTree& sources) {
  std::string complaints;
  ForEachLine(sources, [&](const std::string& path, std::size_t number, const std::string& line) {
    const std::string folder = FolderOf(path);
    if (std::find(kAboveTheLine.begin(), kAboveTheLine.end(), folder) != kAboveTheLine.end())
      return;
    for (const ForeignWord& word : ForeignWordList()) {
      if (folder == kSimulation && !word.InSimulationToo) continue;
      if (!std::regex_search(line, word.Pattern)) continue;
      complaints += Complaint(path, number, word.Advice);
      return;
    }
  });
  return complaints;
}

std::string Oversizes(const SourceTree& sources) {
  std::string complaints;
  ForEachLine(sources, [&](const std::string& path, std::size_t number, const std::string& line) {
    if (Characters(line) > kLongestLine)
      complaints += Complaint(path, number, "the line has more than 100 characters");
  });
  for (const auto& [path, lines] : sources) {
    if (lines.size() > kLongestFile)
      complaints += Complaint(path, lines.size(), "the file has more than 500 lines; split it");
  }
  return complaints;
}

std::string LongTitles(const SourceTree& sources) {
  static const std::regex longTitle(R"((\w{60,})\) \{)");
  std::string complaints;
  ForEachLine(sources, [&](const std::string& path, std::size_t number, const std::string& line) {
    if (std::regex_search(line, longTitle))
      complaints += Complaint(path, number, "the title has 60 characters or more; say it shorter");
  });
  return complaints;
}

std::string BareSuppressions(const SourceTree& sources) {
  static const std::regex suppression("[N]OLINT(?!END)");
  static const std::regex withReason(R"([N]OLINT(NEXTLINE|BEGIN)?\([a-z][^*)]*\): \S)");
  std::string complaints;
  ForEachLine(sources, [&](const std::string& path, std::size_t number, const std::string& line) {
    if (std::regex_search(line, suppression) && !std::regex_search(line, withReason))
      complaints += Complaint(path, number, "say why, and name the check: NOLINT(check): reason");
  });
  return complaints;
}

std::string UnguardedHeaders(const SourceTree& sources) {
  std::string complaints;
  for (const auto& [path, lines] : sources) {
    if (!path.ends_with(".h") || (!lines.empty() && lines.front() == "#pragma once")) continue;
    complaints += Complaint(path, 1, "the header does not begin with #pragma once");
  }
  return complaints;
}

}  // namespace marlex
