#pragma once

namespace marlex {

/// What the program's signals look like on a light desktop: a row that fired last, one that plays
/// and a zone that is live, a conflict, and a cell of no signal.
inline constexpr const char* kNavy = "#12306b";
inline constexpr const char* kGreen = "#3ddc6c";
inline constexpr const char* kRed = "#c62828";
inline constexpr const char* kWhite = "#ffffff";

}  // namespace marlex
