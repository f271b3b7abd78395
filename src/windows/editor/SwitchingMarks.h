// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamBar.h"
#include "editor/DiagramLayer.h"
#include "model/Switching.h"

#include <array>

namespace nira {

/// Where the outputs really switch at the speed that is set: a thin line below the runs of each row
/// that an advance or a delay moves, made from what its bar shows; and a mark "1/n" at the right of
/// the rows that switch in one of n cycles only.
class SwitchingMarks : public DiagramLayer {
  Q_OBJECT

 public:
  explicit SwitchingMarks(QWidget* diagram);

  /// What the programmer makes of a row (from 0) with this bar.
  void Show(int row, const CamBar* bar, const Switching& switching);
  /// The bar of a row was drawn anew.
  void Follow(int row);

  const Switching& Shown(int row) const { return rows_.at(std::size_t(row)).switching; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Row {
    const CamBar* bar = nullptr;
    Switching switching;
    std::vector<Run> drawn;  // the bar's, from which the others were made
    std::vector<Run> runs;
  };

  QRect Strip(const Row& row) const;
  QRect Margin() const;
  void PaintLine(QPainter& painter, const Row& row, const QRegion& where) const;
  void PaintRatios(QPainter& painter) const;
  void PaintRatio(QPainter& painter, int first, int last) const;

  std::array<Row, CamProgram::MaxSizes> rows_;  // as many as there can be
};

}  // namespace nira
