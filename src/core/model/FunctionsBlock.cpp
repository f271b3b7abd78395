// SPDX-License-Identifier: Apache-2.0
#include "model/FunctionsBlock.h"

namespace nira {

void FunctionsBlock::Clear() {
  const std::int16_t last = AdvanceLast;
  *this = FunctionsBlock{};
  AdvanceLast = last;
}

}  // namespace nira
