#pragma once

#include <map>
#include <string>

#include "platform/process.h"

namespace marlex {

/// The process on Linux. A main window is announced to the whole machine by an abstract socket
/// whose name is derived from the caption (unix(7)): the kernel gives it to one process only and
/// frees it when that process ends, even by a crash or a kill. It leaves no file behind.
class PosixProcess : public Process {
 public:
  PosixProcess();
  ~PosixProcess() override;
  PosixProcess(const PosixProcess&) = delete;
  PosixProcess& operator=(const PosixProcess&) = delete;

  /// Directory of the executable itself, even if a link started it; for a packaged program, that of
  /// the link.
  std::string ApplicationDirectory() const override;

  /// Does not find a window that this object itself has claimed.
  bool FindWindow(const std::string& caption) const override;

  /// Claims the caption; false, without effect, when another process holds it. True also when that
  /// cannot be determined.
  bool ClaimWindow(const std::string& caption) override;

  /// Version of the kernel, on a platform that the published interface does not list.
  SystemVersion GetVersion() const override;

  /// Exits with code 0 without running destructors: there are waits further down the stack that
  /// never return.
  [[noreturn]] void End() override;

 private:
  std::string PackagedDirectory;      // found at the start, since an update replaces the executable
  std::map<std::string, int> Claims;  // caption to socket
};

}  // namespace marlex
