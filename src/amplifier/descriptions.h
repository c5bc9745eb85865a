#pragma once

#include <string>

namespace marlex {

// What the bytes on the line mean, in English, for those who watch it. Values are 0 to 255.

/// "no", "low" or "high": the priority level in a routing byte.
std::string DescribeLevel(int value);

/// "zones 1 3, low priority", or "release of all zones".
std::string DescribeRouting(int value);

/// "free", "lower call", "higher call", or "higher call, both bits".
std::string DescribeStatus(int value);

}  // namespace marlex
