// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

namespace nira {

/// `share` (0 to 1) of one colour, the rest of the other: shades that every theme has, made from
/// its own text and ground.
inline QColor Mixed(const QColor& colour, const QColor& ground, double share) {
  const auto part = [share](int a, int b) { return qRound(share * a + (1 - share) * b); };
  return {part(colour.red(), ground.red()), part(colour.green(), ground.green()),
          part(colour.blue(), ground.blue())};
}

}  // namespace nira
