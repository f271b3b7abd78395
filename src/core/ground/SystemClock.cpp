// SPDX-License-Identifier: Apache-2.0
#include "ground/SystemClock.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <chrono>
#include <thread>

namespace nira {

void ProcessEvents(Yield yield) {
  QCoreApplication::processEvents(yield == Yield::Events ? QEventLoop::AllEvents
                                                         : QEventLoop::ExcludeUserInputEvents);
}

std::int64_t SystemClock::Now() const {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void SystemClock::Pause(int ms, Yield yield) {
  using namespace std::chrono;
  const auto end = steady_clock::now() + milliseconds(ms);
  while (steady_clock::now() < end) {
    std::this_thread::sleep_until(std::min(end, steady_clock::now() + milliseconds(Clock::Slice)));
    ProcessEvents(yield);
  }
}

}  // namespace nira
