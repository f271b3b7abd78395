// SPDX-License-Identifier: Apache-2.0
#include "LineTimer.h"

namespace nira {

Instant LineTimer::Now() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

LineTimer::LineTimer() = default;
LineTimer::~LineTimer() = default;
void LineTimer::Arm(Instant /*at*/) {}
void LineTimer::Disarm() {}
void LineTimer::Acknowledge() {}

}  // namespace nira
