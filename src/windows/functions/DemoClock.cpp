// SPDX-License-Identifier: Apache-2.0
#include "functions/DemoClock.h"

#include <QCoreApplication>

#include <thread>

namespace nira {

namespace {

/// What a short sleep takes beyond its time on the common systems. Windows sleeps whole
/// milliseconds and more: there the whole pause is waited through awake.
#ifdef Q_OS_WIN
constexpr std::chrono::nanoseconds oversleep = std::chrono::hours(1);
#else
constexpr std::chrono::nanoseconds oversleep = std::chrono::microseconds(60);
#endif

}  // namespace

std::chrono::nanoseconds SystemDemoClock::Now() const {
  return std::chrono::steady_clock::now().time_since_epoch();
}

void SystemDemoClock::Yield() {
  QCoreApplication::processEvents();
}

void SystemDemoClock::PauseUntil(std::chrono::nanoseconds time) {
  const auto sleep = time - Now() - oversleep;
  if (sleep.count() > 0) std::this_thread::sleep_for(sleep);
  while (Now() < time) std::this_thread::yield();
}

}  // namespace nira
