#pragma once

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"

namespace marlex {

/// At rest the zone buttons are enabled and the labels show the zones of the music. Exceptions: an
/// announcement that begins during a takeover, and some calls, leave their zones on the labels.
class ZonesInspector : public Inspector {
 public:
  ZonesInspector(const Scene& scene, const CallTraces& call) : Inspector(scene), Call(call) {}
  void Check() override;
  void Remember() override;

 private:
  const CallTraces& Call;
  bool LeftByMessages = false;
};

/// The label of each zone is green if its music button is down, and only then.
bool MusicZonesAreLit(Desk& desk);

}  // namespace marlex
