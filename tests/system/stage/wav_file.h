#pragma once

#include <string>
#include <vector>

namespace marlex::stage {

/// Writes mono samples, -1 to 1, as a WAV file of 16 bits.
bool WriteWav(const std::string& file, const std::vector<float>& samples, int rate);

}  // namespace marlex::stage
