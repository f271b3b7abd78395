// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"
#include "model/FunctionRules.h"

namespace nira {

/// What an advance time means in degrees of the machine cycle, and the reverse.
struct AdvanceCalculator {
  static constexpr int MinSpeed = 1;  ///< revolutions per minute
  static constexpr int MaxSpeed = 4000;
  static constexpr int MaxTime = HighestTime;  ///< milliseconds, from 0
  static constexpr int MinWanted = 1;          ///< degrees
  static constexpr int MaxWanted = 360;

  /// Whole degrees that the shaft turns in `time` (0..210 ms) at `speed` (1..4000), over all turns.
  /// The fraction is cut off as double precision leaves it: 345 rev/min and 100 ms are 206.
  static int Angle(int speed, int time);

  /// An advance angle taken apart: whole turns, and the degrees 0..359 within one.
  static int Turns(int angle) { return angle / CamProgram::Degrees; }
  static int Degrees(int angle) { return angle % CamProgram::Degrees; }

  /// Milliseconds (whole, not limited) that an advance of `degrees` takes at `speed` (1..4000).
  static int TimeFor(int speed, int degrees);

  /// How long the shaft takes for `degrees` at `speed` (1..4000): "35.3 ms", whole milliseconds
  /// from 100 on.
  static QString Duration(int speed, int degrees);

  /// A wanted angle (degrees) and the time (ms) that gives it.
  struct Setting {
    int degrees = 0;
    int time = 0;
    bool operator==(const Setting&) const = default;
  };

  /// The wanted angle (1..360), lowered degree by degree until its time is at most 210 ms.
  static Setting Fitting(int speed, int wanted);

  /// The row with every degree `angle` (from 0) earlier. Angles above 359 are brought down by 359
  /// at a time, so that 360 shifts by 1; a calculator's own angles stay below.
  static CamRow Shifted(const CamRow& row, int angle);
};

}  // namespace nira
