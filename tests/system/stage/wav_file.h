#pragma once

#include <string>
#include <vector>

namespace marlex::stage {

/// Writes mono samples, -1 to 1, as a 16-bit WAV file.
bool WriteWav(const std::string& file, const std::vector<float>& samples, int rate);

}  // namespace marlex::stage
