#pragma once

#include <map>
#include <string>

#include "platform/process.h"

namespace marlex {

/// The process on Linux. A main window is known to the whole machine by an abstract socket whose
/// name follows from the caption: the kernel gives it to one process only and takes it back when
/// that process ends, also by a crash or a kill, and it needs no file that could be left behind.
class PosixProcess : public Process {
 public:
  PosixProcess() = default;
  ~PosixProcess() override;
  PosixProcess(const PosixProcess&) = delete;
  PosixProcess& operator=(const PosixProcess&) = delete;

  std::string ApplicationDirectory() const override;

  /// A window that this object has claimed itself is not found.
  bool FindWindow(const std::string& caption) const override;

  /// Does nothing when another process holds the caption.
  bool ClaimWindow(const std::string& caption) override;

  /// Version of the kernel; the family is none of the published ones.
  SystemVersion GetVersion() const override;

  /// Ends with exit code 0 and runs no destructors: there are waits below that never return.
  [[noreturn]] void End() override;

 private:
  std::map<std::string, int> Claims;  // caption to socket
};

}  // namespace marlex
