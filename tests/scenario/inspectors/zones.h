#pragma once

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"

namespace marlex {

/// At rest the zone keys are alive and the labels show the zones of the music. An announcement that
/// begins under a takeover leaves its zones on the labels, and so do some calls.
class ZonesInspector : public Inspector {
 public:
  ZonesInspector(const Scene& scene, const CallTraces& call) : Inspector(scene), Call(call) {}
  void Check() override;
  void Remember() override;

 private:
  const CallTraces& Call;
  bool LeftByMessages = false;
};

/// The label of each zone is green where its music key is down, and nowhere else.
bool MusicZonesAreLit(Desk& desk);

}  // namespace marlex
