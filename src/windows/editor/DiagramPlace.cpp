// SPDX-License-Identifier: Apache-2.0
#include "editor/DiagramPlace.h"

#include <algorithm>
#include <cmath>

namespace nira {

namespace {

constexpr int overEdge = 4;  // pixels right of the bars that still are degree 359

}  // namespace

int DiagramPlace::X(int degree) const {
  return bars.left() +
         std::min(static_cast<int>(std::lround(degree * unitsPerDegree)), bars.width() - 1);
}

int DiagramPlace::DegreeAt(int x) const {
  const int inside = x - bars.left();
  if (inside < 0 || inside >= bars.width() + overEdge) return -1;
  return std::min(static_cast<int>(inside / unitsPerDegree), CamProgram::Degrees - 1);
}

int DiagramPlace::CamAt(const QPoint& place) const {
  if (place.x() < 0 || place.x() > bars.right()) return -1;
  for (int cam = 0; cam < numCams; ++cam) {
    if (place.y() >= Top(cam) && place.y() < Top(cam + 1)) return cam;
  }
  return -1;
}

QRect DiagramPlace::Lamp(int cam) const {
  const int top = Top(cam);
  const int height = Top(cam + 1) - top - 1;
  const int side = std::clamp(height - 1, 1, LampSide);
  return {lampLeft + (LampSide - side) / 2, top + (height - side) / 2, side, side};
}

QRect DiagramPlace::Row(int cam) const {
  return {QPoint(0, Top(cam) - 1), QPoint(bars.right(), Top(cam + 1) - 1)};
}

}  // namespace nira
