#pragma once

#include <string>

namespace marlex {

/// The far end of a serial line that is a pseudo-terminal: a program opens its near end by a link,
/// "<installation>/com1", as it would a real device.
class LinkedTerminal {
 public:
  explicit LinkedTerminal(std::string link) : Link(std::move(link)) {}

  /// Pulls the line out, and removes the link if it is still ours.
  ~LinkedTerminal();
  LinkedTerminal(const LinkedTerminal&) = delete;
  LinkedTerminal& operator=(const LinkedTerminal&) = delete;

  /// Makes a new device, in place of the one before, and leads the link to it. A link to a
  /// pseudo-terminal that is gone, or to nothing, is replaced; anything else of that name stays.
  /// Returns what was wrong, in English, and then changes nothing; empty if all went well.
  std::string PlugIn();

  /// The device is gone, as when an adapter is unplugged, and the link leads nowhere.
  void PullOut();

  /// Our end, which does not block; -1 without a device. It hangs up (POLLHUP) whenever nobody has
  /// the near end open.
  int Descriptor() const { return Far; }

  /// Name of the near end in /dev.
  const std::string& Device() const { return Name; }

 private:
  std::string Obstacle() const;

  const std::string Link;
  std::string Name;
  int Far = -1;
};

}  // namespace marlex
