// SPDX-License-Identifier: Apache-2.0
#include "controls/Shades.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace nira {

namespace {

constexpr double secondary = 0.65;
constexpr double leastContrast = 6;  // thin strokes of small text lose a quarter
constexpr double leastDisabledContrast = 2;

struct Pair {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};
constexpr std::array pairs = {
    Pair{QPalette::WindowText, QPalette::Window},
    Pair{QPalette::Text, QPalette::Base},
    Pair{QPalette::ButtonText, QPalette::Button},
    Pair{QPalette::HighlightedText, QPalette::Highlight},
    Pair{QPalette::ToolTipText, QPalette::ToolTipBase},
    Pair{QPalette::Link, QPalette::Base},
};

double Linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// 0 for black to 1 for white, as the eye weighs it.
double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

bool Reads(const QColor& text, const QColor& ground) {
  return Contrast(text, ground) >= leastContrast;
}

QColor Readable(const QColor& text, const QColor& ground) {
  if (Reads(text, ground)) return text;
  return Contrast(Qt::black, ground) > Contrast(Qt::white, ground) ? Qt::black : Qt::white;
}

/// White on a selection too light for it: in a light window the selection gets darker, which also
/// lets it stand out. In a dark one it stays as bright as it is, and its text gets dark.
void DarkenSelection(QPalette& palette, QPalette::ColorGroup group) {
  const QColor text = palette.color(group, QPalette::HighlightedText);
  QColor ground = palette.color(group, QPalette::Highlight);
  const bool lightWindow = Luminance(palette.color(group, QPalette::Window)) > 0.5;
  if (!lightWindow || Luminance(text) < Luminance(ground)) return;
  for (int step = 0; step < 40 && !Reads(text, ground); ++step) ground = ground.darker(103);
  palette.setColor(group, QPalette::Highlight, ground);
}

/// A disabled control differs from an enabled one, and can still be seen.
void MakeDisabledVisible(QPalette& palette, const Pair& pair) {
  const QColor text = palette.color(QPalette::Active, pair.text);
  const QColor ground = palette.color(QPalette::Disabled, pair.ground);
  const QColor disabled = palette.color(QPalette::Disabled, pair.text);
  if (disabled != text && Contrast(disabled, ground) >= leastDisabledContrast) return;
  palette.setColor(QPalette::Disabled, pair.text, Mixed(text, ground, 0.5));
}

}  // namespace

QColor SecondaryText(const QPalette& palette, QPalette::ColorRole ground) {
  const auto text = ground == QPalette::Base ? QPalette::Text : QPalette::WindowText;
  return Mixed(palette.color(text), palette.color(ground), secondary);
}

QColor Outline(const QPalette& palette) {
  return Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.5);
}

double Contrast(const QColor& colour, const QColor& ground) {
  const auto [low, high] = std::minmax({Luminance(colour), Luminance(ground)});
  return (high + 0.05) / (low + 0.05);
}

void MakeReadable(QPalette& palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    DarkenSelection(palette, group);
    for (const Pair& pair : pairs) {
      const QColor ground = palette.color(group, pair.ground);
      palette.setColor(group, pair.text, Readable(palette.color(group, pair.text), ground));
    }
  }
  for (const Pair& pair : pairs) MakeDisabledVisible(palette, pair);
  palette.setColor(QPalette::PlaceholderText, SecondaryText(palette, QPalette::Base));
}

}  // namespace nira
