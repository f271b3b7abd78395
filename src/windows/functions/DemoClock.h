// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

namespace nira {

/// What the turning loop of the rotation demo waits by; a test brings its own.
class DemoClock {
 public:
  virtual ~DemoClock() = default;

  /// Time on a clock that never goes back.
  virtual std::chrono::nanoseconds Now() const = 0;

  /// Lets the user interface handle what is pending.
  virtual void Yield() = 0;

  /// Returns when `Now` has reached `time`, and not before.
  virtual void PauseUntil(std::chrono::nanoseconds time) = 0;
};

/// The time of the machine that the program runs on.
class SystemDemoClock : public DemoClock {
 public:
  std::chrono::nanoseconds Now() const override;
  void Yield() override;
  void PauseUntil(std::chrono::nanoseconds time) override;
};

}  // namespace nira
