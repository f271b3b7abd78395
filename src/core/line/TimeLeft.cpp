// SPDX-License-Identifier: Apache-2.0
#include "line/TimeLeft.h"

#include <algorithm>
#include <cmath>

namespace nira {

namespace {

constexpr double trustInLine = 500;    // ms that what is expected weighs beside what was seen
constexpr double shortestLook = 2000;  // ms before what was seen alone says anything
constexpr double approach = 4000;      // ms in which the rest of a difference is made up

/// Seconds as somebody would say them: exact to the second near the end alone.
int Rounded(double ms) {
  const int seconds = static_cast<int>(std::ceil(ms / 1000));
  const int step = seconds > 60 ? 10 : seconds > 20 ? 5 : 1;
  return (seconds + step - 1) / step * step;
}

}  // namespace

void TimeLeft::Moved(double part, std::int64_t now) {
  const double elapsed = static_cast<double>(now - begun_);
  if (expected_ > 0) {
    const double slower = (elapsed + trustInLine) / (part * expected_ + trustInLine);
    due_ = static_cast<double>(now) + (1 - part) * expected_ * slower;
  } else if (part > 0 && elapsed >= shortestLook) {
    due_ = static_cast<double>(now) + (1 - part) * elapsed / part;
  }
}

std::optional<int> TimeLeft::Seconds(std::int64_t now) {
  if (!due_) return std::nullopt;
  const double left = std::max(0.0, *due_ - static_cast<double>(now));
  const double passed = static_cast<double>(now - saidAt_);
  const double before = said_ ? std::max(0.0, *said_ - passed) : left;
  said_ = before + (left - before) * std::min(1.0, passed / approach);
  saidAt_ = now;
  return Rounded(*said_);
}

}  // namespace nira
