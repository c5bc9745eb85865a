#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "simulation/virtual_loop.h"

namespace marlex {

/// Records what the system does to its PC, one line per effect: "<milliseconds since the last
/// Clear> <category> <what>".
///
/// Categories: send, lost and serial (the line); wav and control (the two wave players); song; box,
/// open and save (dialogs); process; failure (broken rules that nobody handles); rebuild (whole
/// profile files). Off by default: write (values in profile files), mixer, load (of a song), and
/// record (the system log).
class Journal {
 public:
  explicit Journal(const VirtualLoop& loop) : Loop(loop) {}

  /// Records only these categories from now on.
  void Only(std::initializer_list<std::string> categories) {
    Chosen = std::set<std::string>(categories);
  }

  /// Stops or resumes recording one category.
  void Mute(const std::string& category) { Muted.insert(category); }
  void Unmute(const std::string& category) { Muted.erase(category); }

  bool Records(const std::string& category) const {
    return Chosen ? Chosen->contains(category) : !Muted.contains(category);
  }

  void Write(const std::string& category, const std::string& what) {
    if (!Records(category)) return;
    Entries.push_back(std::to_string(Loop.NowMs() - StartMs) + " " + category +
                      (what.empty() ? "" : " " + what));
  }

  /// Forgets all lines and restarts the count of milliseconds.
  void Clear() {
    Entries.clear();
    StartMs = Loop.NowMs();
  }

  const std::vector<std::string>& Lines() const { return Entries; }

  /// All lines, each with a line feed.
  std::string Text() const {
    std::string text;
    for (const std::string& line : Entries) text += line + "\n";
    return text;
  }

  /// Returns the text of all lines, then clears them.
  std::string Take() {
    std::string text = Text();
    Clear();
    return text;
  }

 private:
  const VirtualLoop& Loop;
  std::int64_t StartMs = 0;
  std::vector<std::string> Entries;
  std::optional<std::set<std::string>> Chosen;
  std::set<std::string> Muted{"mixer", "write", "load", "record"};
};

}  // namespace marlex
