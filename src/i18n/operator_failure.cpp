#include "i18n/operator_failure.h"

namespace marlex {

std::string TextOf(const RuntimeFailure& failure, const StringTable& strings) {
  const auto* ofOperator = dynamic_cast<const OperatorFailure*>(&failure);
  if (!ofOperator) return failure.what();
  return failure.Place() + strings.LoadString(ofOperator->TextId) + ofOperator->Detail;
}

}  // namespace marlex
