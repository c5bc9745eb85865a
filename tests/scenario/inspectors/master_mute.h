#pragma once

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// A takeover mutes the master until status 0, and nothing else ever mutes it. During a takeover
/// only something that starts opens it again: the messages of a row that was waiting for the song's
/// end, those of a row of the very tick that the takeover interrupted, and, once a lower status
/// lets us start, anything that then starts.
class MasterMuteInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;
  void Remember() override;

 private:
  bool WasMuted = true;
  bool HasSounded = false;  // since the start of the program
};

}  // namespace marlex
