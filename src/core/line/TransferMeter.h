// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Clock.h"
#include "line/TimeLeft.h"
#include "line/TransferReport.h"

namespace nira {

/// Counts what a transfer moves, and tells its report now and then: the line is not to wait for a
/// picture.
class TransferMeter {
 public:
  TransferMeter(const Clock& time, TransferReport& report)
      : time_(time), report_(report), left_(0, 0) {}

  /// A transfer of so many sizes, or messages, begins; `expected` milliseconds on the line, 0 when
  /// nobody knows.
  void Begin(bool sizes, int items, double expected);

  /// This item is in progress from now on. Its number is all that is known of how much has moved
  /// when nothing was expected.
  void Item(std::int64_t number);

  /// One more frame. `part` (0 to 1) of all has moved with it, where that is known.
  void Frame(double part = 0);

 private:
  void Tell();

  const Clock& time_;
  TransferReport& report_;
  TransferCount count_;
  TimeLeft left_;
  bool known_ = false;
  bool due_ = false;  // the next frame is told in any case
  std::int64_t told_ = 0;
};

}  // namespace nira
