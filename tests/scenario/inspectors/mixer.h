#pragma once

#include <cstdint>

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// Sliders stay within their range, the card's lines match their sliders and mutes, and a fade runs
/// exactly as long as its timer. A line whose last setting was refused by the card stays where it
/// is until the next setting.
class MixerInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;

 private:
  bool CardFollows(int line, std::uint32_t componentType);
};

}  // namespace marlex
