#pragma once

namespace marlex {

/// What the program's signals look like on a light desktop: the row that fired last; a row that is
/// playing, or a zone that hears speech or a message; a zone that is fed with music or silence; a
/// conflict; a cell without a signal.
inline constexpr const char* kNavy = "#12306b";
inline constexpr const char* kGreen = "#3ddc6c";
inline constexpr const char* kPaleGreen = "#b5e8c4";
inline constexpr const char* kRed = "#c62828";
inline constexpr const char* kWhite = "#ffffff";

}  // namespace marlex
