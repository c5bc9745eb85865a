#include "amplifier/stand_in.h"

#include "amplifier/bytes.h"
#include "amplifier/descriptions.h"

namespace marlex {

void StandIn::Hear(std::string_view bytes) {
  for (const char byte : bytes) {
    const int value = static_cast<unsigned char>(byte);
    Lit = ZonesOfByte(value);
    Level = value & kPriorityBits;
    Note(true, value, DescribeRouting(value));
  }
  if (OnChange) OnChange();
}

void StandIn::SetStatus(int status) {
  OwnStatus = status;
  const bool isHeard = Send && Send(static_cast<char>(status));
  Note(false, status, DescribeStatus(status) + (isHeard ? "" : ", unheard: no desk is there"));
  if (OnChange) OnChange();
}

void StandIn::Note(bool fromDesk, int value, const std::string& meaning) {
  Noted.push_back({Time(), fromDesk, value, meaning});
  if (Noted.size() > kMostNotes) Noted.pop_front();
  ++Count;
}

}  // namespace marlex
