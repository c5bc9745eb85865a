#pragma once

#include <cstdint>
#include <optional>

#include "scenario/inspectors/call_traces.h"
#include "scenario/inspectors/inspector.h"

namespace marlex {

/// A message that begins is heard: a takeover drops the rest of an announcement, and whatever plays
/// another one during it opens the master first. Once the player has reported the end of a message,
/// the next one begins, or the announcement ends, immediately, even if a box or dialog is open.
/// Only a message that a call has cut off waits until the call ends.
class MessagesInspector : public Inspector {
 public:
  MessagesInspector(const Scene& scene, const CallTraces& call) : Inspector(scene), Call(call) {}
  void Check() override;

 private:
  void CheckThatTheyGoOn();

  const CallTraces& Call;
  std::optional<std::int64_t> EndReportedAtMs;
};

}  // namespace marlex
