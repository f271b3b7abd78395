// SPDX-License-Identifier: Apache-2.0
#include "model/AdvanceCalculator.h"

#include <cmath>

namespace nira {

namespace {

constexpr double degreesPerMillisecond = 0.006;  // at 1 rev/min: 360 / 60000
constexpr double millisecondsPerDegree = 166.6666666667;

}  // namespace

int AdvanceCalculator::Angle(int speed, int time) {
  // Left to right: another order gives other degrees.
  return static_cast<int>((speed * degreesPerMillisecond) * time);
}

int AdvanceCalculator::TimeFor(int speed, int degrees) {
  Q_ASSERT(speed >= MinSpeed);
  const auto atOne = static_cast<int>(std::nearbyint(degrees * millisecondsPerDegree));
  return atOne / speed;
}

QString AdvanceCalculator::Duration(int speed, int degrees) {
  const double time = degrees * 60000.0 / (CamProgram::Degrees * speed);
  return QString::number(time, 'f', time < 99.95 ? 1 : 0) + QStringLiteral(" ms");
}

AdvanceCalculator::Setting AdvanceCalculator::Fitting(int speed, int wanted) {
  int degrees = wanted;  // one degree fits at every speed: 167 ms at the lowest
  while (TimeFor(speed, degrees) > MaxTime) --degrees;
  return {degrees, TimeFor(speed, degrees)};
}

CamRow AdvanceCalculator::Shifted(const CamRow& row, int angle) {
  constexpr int degrees = CamProgram::Degrees;
  while (angle >= degrees) angle -= degrees - 1;
  CamRow shifted{};
  for (int d = 0; d < degrees; ++d) {
    const int to = (d - angle % degrees + degrees) % degrees;
    shifted[static_cast<std::size_t>(to)] = row[static_cast<std::size_t>(d)];
  }
  return shifted;
}

}  // namespace nira
