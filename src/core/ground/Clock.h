// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTime>

#include <cstdint>

namespace nira {

/// What goes on while a wait lasts.
enum class Yield {
  Painting,  ///< windows are painted and the desktop is answered; the operator's input waits
  Events,    ///< everything
};

/// Milliseconds of a clock that never runs backwards, and pauses on it. Tests run on one that
/// jumps.
class Clock {
 public:
  static constexpr int Slice = 20;  ///< longest time in a wait without painting: 50 a second

  virtual ~Clock() = default;
  virtual std::int64_t Now() const = 0;
  virtual void Pause(int ms, Yield yield) = 0;

  /// Hour and minute for the operator; here of a day that began with the clock.
  virtual QTime TimeOfDay() const {
    constexpr int day = 24 * 60 * 60 * 1000;  // ms
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(Now() % day));
  }
};

}  // namespace nira
