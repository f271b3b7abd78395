// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QRect>

namespace nira {

/// Where the parts of the diagram stand, in its pixels.
struct DiagramPlace {
  QRect bars;  ///< all bars of the cams that exist
  int numCams = CamProgram::MaxCams;
  double unitsPerDegree = 1;
  int lampLeft = 0;  ///< left edge of the lamps

  static constexpr int LampSide = 9;
  static constexpr int Tick = 8;  ///< the longest of the scale

  /// Top of a cam's row; of the cam after the last one: the end of the rows.
  int Top(int cam) const { return bars.top() + bars.height() * cam / numCams; }
  /// Where degree 0..359 begins.
  int X(int degree) const;
  /// The degree at a place, -1 beside the bars. Degree 359 has no width in the bars: it is met at
  /// their right edge.
  int DegreeAt(int x) const;
  /// The cam whose row is there, from 0; -1 outside the rows.
  int CamAt(const QPoint& place) const;
  /// A cam's lamp, beside its number.
  QRect Lamp(int cam) const;
  /// The whole row of a cam, from its number to the end of its bar.
  QRect Row(int cam) const;
};

}  // namespace nira
