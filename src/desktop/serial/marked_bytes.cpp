#include "desktop/serial/marked_bytes.h"

namespace marlex {

namespace {

constexpr char kEscape = '\xFF';
constexpr char kError = '\0';

}  // namespace

std::string MarkedBytes::Take(std::string_view read) {
  std::string good;
  for (const char byte : read) {
    switch (State) {
      case After::GoodByte:
        State = byte == kEscape ? After::Escape : After::GoodByte;
        if (byte != kEscape) good += byte;
        break;
      case After::Escape:
        State = byte == kError ? After::Mark : After::GoodByte;
        if (byte != kError) good += byte;
        break;
      case After::Mark:
        State = After::GoodByte;
        break;
    }
  }
  return good;
}

}  // namespace marlex
