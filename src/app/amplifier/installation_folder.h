#pragma once

#include <string>

namespace marlex {

/// The installation folder that the command `marlex` uses when it is given none:
/// `${XDG_DATA_HOME:-~/.local/share}/marlex`. Empty if the user has no home.
std::string UsualFolder();

/// Opens an installation folder as the command `marlex` does, and makes it if there is none.
/// Returns its full path; if it cannot be used, an empty one, and what was wrong in `fault`.
std::string OpenFolder(const std::string& folder, std::string& fault);

}  // namespace marlex
