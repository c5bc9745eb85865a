#pragma once

#include <cstddef>

#include "scenario/inspectors/inspector.h"

namespace marlex {

/// Every byte to the amplifier is either the release, or our own priority with the zones that the
/// labels show. A takeover holds such a byte back, and without a router none is sent at all.
class BytesInspector : public Inspector {
 public:
  using Inspector::Inspector;
  void Check() override;
  void Remember() override { Sent = TheDesk.Pc.Serial.Sent().size(); }

  bool HasSent() const { return TheDesk.Pc.Serial.Sent().size() > Sent; }  // in this event

 private:
  void CheckByte(int value);

  std::size_t Sent = 0;
};

}  // namespace marlex
