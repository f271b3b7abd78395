// SPDX-License-Identifier: Apache-2.0
#include "LineTimer.h"

#include <algorithm>
#include <cstdint>
#include <sys/timerfd.h>
#include <unistd.h>

namespace nira {

Instant LineTimer::Now() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

LineTimer::LineTimer()
    : descriptor_(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {}

LineTimer::~LineTimer() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

void LineTimer::Arm(Instant at) {
  // A time that is past goes off at once; zero would disarm.
  const Instant positive = std::max(at, Instant(1));
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(positive);
  itimerspec when{};
  when.it_value.tv_sec = seconds.count();
  when.it_value.tv_nsec = (positive - seconds).count();
  ::timerfd_settime(descriptor_, TFD_TIMER_ABSTIME, &when, nullptr);
}

void LineTimer::Disarm() {
  const itimerspec never{};
  ::timerfd_settime(descriptor_, 0, &never, nullptr);
}

void LineTimer::Acknowledge() {
  std::uint64_t expired = 0;
  [[maybe_unused]] const ssize_t got = ::read(descriptor_, &expired, sizeof expired);
}

}  // namespace nira
