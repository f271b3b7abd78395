// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Clock.h"

namespace nira {

/// Handles what waits in the event loop, as far as `yield` lets it, and returns.
void ProcessEvents(Yield yield);

/// The machine's own clock.
class SystemClock : public Clock {
 public:
  std::int64_t Now() const override;
  QTime TimeOfDay() const override { return QTime::currentTime(); }

  /// Sleeps in slices, so that the windows stay painted.
  void Pause(int ms, Yield yield) override;
};

}  // namespace nira
