// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Instant.h"

namespace nira {

/// A timer of the system's best resolution, for a line on which a byte takes half a millisecond:
/// its descriptor can be read when the time has come. There is none but on Linux.
class LineTimer {
 public:
  LineTimer();
  ~LineTimer();
  LineTimer(const LineTimer&) = delete;
  LineTimer& operator=(const LineTimer&) = delete;

  /// The clock that it goes by.
  static Instant Now();

  int Descriptor() const { return descriptor_; }
  void Arm(Instant at);
  void Disarm();
  void Acknowledge();  ///< after it has gone off

 private:
  int descriptor_ = -1;
};

}  // namespace nira
