#pragma once

#include <string>

#include "i18n/string_table.h"
#include "platform/runtime_failure.h"

namespace marlex {

/// A broken rule that the operator can cause, by what is typed or chosen or by a file. Its text is
/// in the string table; `detail` follows it, the same in every language.
class OperatorFailure : public RuntimeFailure {
 public:
  explicit OperatorFailure(int textId, const std::string& detail = "")
      : RuntimeFailure(StringTable::LoadEnglish(textId) + detail), TextId(textId), Detail(detail) {}

  const int TextId;
  const std::string Detail;
};

/// What a failure says to the operator, in the chosen language if it has a text there.
std::string TextOf(const RuntimeFailure& failure, const StringTable& strings);

}  // namespace marlex
