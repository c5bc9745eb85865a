#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace marlex {

/// The PC that a contract is held on: the simulated one, on which most tests rest, or the real one.
enum class PcKind { Simulated, Real };

inline void PrintTo(PcKind pc, std::ostream* out) {
  *out << (pc == PcKind::Simulated ? "Simulated" : "Real");
}

inline const auto kBothPcs = testing::Values(PcKind::Simulated, PcKind::Real);

inline std::string NameOf(const testing::TestParamInfo<PcKind>& info) {
  return testing::PrintToString(info.param);
}

}  // namespace marlex
