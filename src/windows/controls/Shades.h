// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QPalette>

namespace nira {

/// The ground of what the operator should look at, black on it in every theme.
inline constexpr QRgb amberGround = 0xffffdf94;

/// `share` (0 to 1) of one colour, the rest of the other: shades that every theme has, made from
/// its own text and ground.
inline QColor Mixed(const QColor& colour, const QColor& ground, double share) {
  const auto part = [share](int a, int b) { return qRound(share * a + (1 - share) * b); };
  return {part(colour.red(), ground.red()), part(colour.green(), ground.green()),
          part(colour.blue(), ground.blue())};
}

/// What is of less weight than the text around it, on the ground of a window or of a list (`Base`).
QColor SecondaryText(const QPalette& palette, QPalette::ColorRole ground = QPalette::Window);

/// Of lines and frames that tell what a control is, on the ground of a window.
QColor Outline(const QPalette& palette);

/// How well one colour reads on another: 1 for the same, 21 for black on white.
double Contrast(const QColor& colour, const QColor& ground);

/// Gives every text that a theme forgot, or made for another ground, a colour that reads.
void MakeReadable(QPalette& palette);

}  // namespace nira
