#include "scenario/inspectors/bytes.h"

namespace marlex {
namespace {

constexpr int kRelease = 0;
constexpr int kZoneBits = 63;

}  // namespace

void BytesInspector::Check() {
  if (HasSent()) Require(Values().RouterPresent, "A byte without a router");
  const auto& bytes = TheDesk.Pc.Serial.Sent();
  for (std::size_t byte = Sent; byte < bytes.size(); ++byte) CheckByte(bytes[byte].Value);
}

void BytesInspector::CheckByte(int value) {
  if (value == kRelease) return;
  Require((value & kPriorityBits) == Values().OwnPriorityLevel,
          "A byte of another priority: " + std::to_string(value));
  int zones = 0;
  for (int zone = 0; zone < kZones; ++zone) zones |= (TheDesk.LitZones()[zone] == '1') << zone;
  Require((value & kZoneBits) == zones && zones != 0,
          "A byte of other zones than the labels: " + std::to_string(value));
  Require(!State().PriorityPreempted, "Zones sent during a takeover");
}

}  // namespace marlex
