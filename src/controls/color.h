#pragma once

#include <cstdint>

namespace marlex {

/// A colour as the windows store it: red in the low byte, then green, then blue. A value with the
/// high bit set names a colour of the system's palette.
using Color = std::uint32_t;

inline constexpr Color kBlack = 0x000000;
inline constexpr Color kWhite = 0xFFFFFF;
inline constexpr Color kRed = 0x0000FF;
inline constexpr Color kGreen = 0x00FF00;
inline constexpr Color kDarkGreen = 0x008000;
inline constexpr Color kNavy = 0x800000;
inline constexpr Color kButtonFace = 0x8000000F;
inline constexpr Color kButtonText = 0x80000012;

}  // namespace marlex
