// SPDX-License-Identifier: Apache-2.0
#include "line/TransferMeter.h"

#include <algorithm>

namespace nira {

void TransferMeter::Begin(bool sizes, int items, double expected) {
  count_ = {.Sizes = sizes, .Items = items};
  known_ = expected > 0;
  left_ = TimeLeft(time_.Now(), expected);
  if (known_) left_.Moved(0, time_.Now());
  due_ = true;
}

void TransferMeter::Item(std::int64_t number) {
  count_.Item = static_cast<int>(std::clamp<std::int64_t>(number, 0, count_.Items));
  due_ = due_ || count_.Sizes;
  if (!known_)
    left_.Moved(std::max(0, count_.Item - 1) / static_cast<double>(count_.Items), time_.Now());
}

void TransferMeter::Frame(double part) {
  ++count_.Frames;
  if (known_) left_.Moved(part, time_.Now());
  constexpr int between = 250;  // ms
  if (due_ || time_.Now() - told_ >= between) Tell();
}

void TransferMeter::Tell() {
  due_ = false;
  told_ = time_.Now();
  count_.Seconds = left_.Seconds(told_).value_or(-1);
  report_.Count(count_);
}

}  // namespace nira
