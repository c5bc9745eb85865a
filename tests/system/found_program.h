#pragma once

#include "sound/child_process.h"

namespace marlex {

/// Whether the machine has a program of that name.
inline bool IsInstalled(const std::string& program) {
  stage::Command command;
  command.Arguments = {"sh", "-c", "command -v " + program};
  return stage::Run(command) == 0;
}

}  // namespace marlex
