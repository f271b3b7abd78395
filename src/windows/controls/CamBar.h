// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/PhaseList.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace nira {

/// Colours that carry a meaning stand together with what is drawn on them, so that they read the
/// same in every theme.
namespace colours {
inline constexpr QRgb selectedBar = 0xffffff00;   // yellow
inline constexpr QRgb bar = 0xffffffff;           // white
inline constexpr QRgb selectedText = 0xff0000ff;  // blue; also the runs at the ends of the cycle
inline constexpr QRgb text = 0xff000000;          // black; also every run of another cam
inline constexpr QRgb selectedRun = 0xff5555ff;   // light blue
inline constexpr QRgb lit = 0xffff5555;           // light red: the demo's pointer and lit lamps
inline constexpr QRgb frame = 0xff808080;         // grey lines around and between what is drawn
}  // namespace colours

/// The bar of one cam. It keeps the picture that was drawn last and paints from it alone, so that
/// covering or resizing the window never shows more than the last refresh did.
class CamBar : public QWidget {
  Q_OBJECT

 public:
  struct Picture {
    bool selected = false;
    std::vector<Run> runs;
    bool operator==(const Picture&) const = default;
  };

  explicit CamBar(QWidget* parent);

  void Show(Picture picture);
  const Picture& Shown() const { return picture_; }

  /// Horizontal units (pixels) of one degree.
  void SetScale(double unitsPerDegree);

  /// The box of a run in this bar: at least 2 pixels wide, inside the margin.
  QRect BoxOf(const Run& run) const;

  /// The run whose box is there, none beside the boxes.
  std::optional<Run> RunAt(int x) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect Background() const;

  Picture picture_;
  double unitsPerDegree_ = 1;
};

}  // namespace nira
