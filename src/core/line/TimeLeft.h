// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>

namespace nira {

/// How long a transfer will still take. At first it goes by what the line can carry, where that is
/// known, then more and more by how long what moved so far really took. What it says never jumps:
/// it draws near to a new estimate.
class TimeLeft {
 public:
  /// `now` in milliseconds, as everywhere here. `expected` is how long the line takes for all of
  /// it; 0 when nobody knows what there will be.
  TimeLeft(std::int64_t now, double expected) : begun_(now), expected_(expected) {}

  /// A part (0 to 1) of all has moved.
  void Moved(double part, std::int64_t now);

  /// Whole seconds, rounded up to steps that grow with them; none while there is nothing to go by.
  std::optional<int> Seconds(std::int64_t now);

 private:
  std::int64_t begun_;
  double expected_;
  std::optional<double> due_;   // when it will end
  std::optional<double> said_;  // ms left, as said last
  std::int64_t saidAt_ = 0;
};

}  // namespace nira
