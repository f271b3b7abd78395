// SPDX-License-Identifier: Apache-2.0
#include "Exchange.h"

namespace nira {

bool Exchange::TakeByte(char /*byte*/, Instant /*at*/) {
  return false;
}

void Exchange::TakeLine(std::string_view /*line*/, Instant /*at*/) {}

std::optional<Instant> Exchange::NextAction() const {
  return std::nullopt;
}

void Exchange::Act(Instant /*at*/) {}

}  // namespace nira
