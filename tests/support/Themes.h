// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/ProgramStyle.h"

#include <QColor>
#include <QPalette>

#include <initializer_list>
#include <utility>

namespace nira {

/// The program's style on a desktop that brings its own colours, some of them or none.
class ThemedStyle : public ProgramStyle {
 public:
  explicit ThemedStyle(const QPalette& colours) : colours_(colours) {}
  void polish(QPalette& palette) override {
    palette = colours_.resolve(palette);
    ProgramStyle::polish(palette);
  }

 private:
  QPalette colours_;
};

/// A dark scheme: all of it as a desktop brings it, or only the colours that nobody forgets.
inline QPalette Dark(bool whole) {
  const std::initializer_list<std::pair<QPalette::ColorRole, QRgb>> colours = {
      {QPalette::Window, 0x2a2e32},
      {QPalette::WindowText, 0xfcfcfc},
      {QPalette::Base, 0x1b1e20},
      {QPalette::Text, 0xfcfcfc},
      {QPalette::Button, 0x31363b},
      {QPalette::ButtonText, 0xfcfcfc},
      {QPalette::Highlight, 0x3daee9},
      {QPalette::HighlightedText, 0xfcfcfc},
      {QPalette::PlaceholderText, 0x6e7175},
      {QPalette::Link, 0x1d99f3},
      {QPalette::Light, 0x464d54},
      {QPalette::Midlight, 0x3c4248},
      {QPalette::Mid, 0x24272b},
      {QPalette::Dark, 0x141618},
      {QPalette::Shadow, 0x0f1112},
      {QPalette::AlternateBase, 0x232629},
  };
  QPalette dark;
  for (const auto& [role, colour] : colours) {
    if (!whole && role == QPalette::PlaceholderText) break;
    dark.setColor(role, QColor(colour));
  }
  return dark;
}

}  // namespace nira
