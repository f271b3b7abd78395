// SPDX-License-Identifier: Apache-2.0
#include "Interrupt.h"

namespace nira {

Interrupt::Interrupt() = default;
Interrupt::~Interrupt() = default;
bool Interrupt::HasCome() const {
  return false;
}

}  // namespace nira
