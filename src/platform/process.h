#pragma once

#include <string>

namespace marlex {

/// Version of the operating system, as in the published structure OSVERSIONINFO.
struct SystemVersion {
  int PlatformId = 0;  // 1 and 2 are published values; 0 is any other system
  int MajorVersion = 0;
  int MinorVersion = 0;
};

/// The process that the system runs in.
class Process {
 public:
  virtual ~Process() = default;

  /// Directory of the executable, without a final separator unless it is a root.
  virtual std::string ApplicationDirectory() const = 0;

  /// Whether another process on this machine shows a main window with exactly this caption.
  virtual bool FindWindow(const std::string& caption) const = 0;

  /// Makes this process known by its main window until it ends, however it ends. False when
  /// another process has such a window.
  virtual bool ClaimWindow(const std::string& caption) = 0;

  virtual SystemVersion GetVersion() const = 0;

  /// Ends the process at once, from any depth of nested waits. Does not return.
  [[noreturn]] virtual void End() = 0;
};

}  // namespace marlex
