#pragma once

#include <cstdint>

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// Sliders stay between their ends, the card's lines are where their sliders and mutes are, and a
/// fade runs exactly as long as its timer. A line whose last setting the card refused stays where
/// it is until the next one.
class MixerInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;

 private:
  bool CardFollows(int line, std::uint32_t componentType);
};

}  // namespace marlex
