#pragma once

#include "scenario/inspectors/call.h"
#include "scenario/inspectors/inspector.h"

namespace marlex {

/// The microphone is open only while a call is in its speaking phase, with its button held and both
/// buttons saying so, and never during a takeover.
class MicrophoneInspector : public Inspector {
 public:
  MicrophoneInspector(const Scene& scene, const CallInspector& call)
      : Inspector(scene), Call(call) {}
  void Check() override;

 private:
  const CallInspector& Call;
};

}  // namespace marlex
