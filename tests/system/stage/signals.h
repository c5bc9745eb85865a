#pragma once

namespace marlex {

/// What the program's signals look like on a light desktop: the row that fired last; a row that is
/// playing, or a live zone; a conflict; a cell without a signal.
inline constexpr const char* kNavy = "#12306b";
inline constexpr const char* kGreen = "#3ddc6c";
inline constexpr const char* kRed = "#c62828";
inline constexpr const char* kWhite = "#ffffff";

}  // namespace marlex
