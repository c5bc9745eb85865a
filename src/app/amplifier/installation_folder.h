#pragma once

#include <string>

namespace marlex {

/// The installation folder that the command `marlex` uses when it is given none:
/// `${XDG_DATA_HOME:-~/.local/share}/marlex`. Empty if the user has no home.
std::string UsualFolder();

/// Opens an installation folder as the command `marlex` does, creating it if it does not exist.
/// Returns its full path; empty if the folder cannot be used, with the reason in `fault`.
std::string OpenFolder(const std::string& folder, std::string& fault);

}  // namespace marlex
