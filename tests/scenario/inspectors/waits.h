#pragma once

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// Neither waits nor boxes accumulate.
class WaitsInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;
};

}  // namespace marlex
