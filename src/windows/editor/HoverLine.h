// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editor/DiagramLayer.h"

#include <QRegion>

#include <bitset>
#include <vector>

namespace nira {

/// What is read at one degree, painted over the diagram: a line through all rows with its degree on
/// both scales, the lamps of the cams that are ON there, and the outline of the row under the
/// pointer. The line follows the pointer until it is pinned; a second pin measures from the first.
class HoverLine : public DiagramLayer {
  Q_OBJECT

 public:
  explicit HoverLine(QWidget* diagram);

  /// The pointer is at this degree (-1: beside the bars) and this row (-1: beside the rows).
  void PointAt(int degree, int cam);

  /// Pins a line: the first one, then the second one, which moves with every further pin.
  void Pin(int degree);
  /// Moves the line that was pinned last, across 359/0 as well.
  void Step(int degrees);
  void Free();
  bool Pinned() const { return !shown_.pins.empty(); }

  /// The degree that is read, -1 for none.
  int Degree() const;
  /// From the first pin forward to the second, in degrees; -1 when there are not two.
  int Difference() const;

  void Light(int cam, bool on);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Picture {
    int degree = -1;  // under the pointer
    int row = -1;
    std::vector<int> pins;                    // at most two
    std::bitset<CamProgram::MaxSizes> lamps;  // of as many rows as there can be
  };

  void Show(const Picture& picture);
  std::vector<int> Lines() const;
  QString Caption(std::size_t line) const;
  QRect Pill(std::size_t line, bool upper) const;
  QRegion Places() const;
  QRegion Outline() const;
  void PaintLamps(QPainter& painter, const QRegion& where) const;
  void PaintLine(QPainter& painter, std::size_t line) const;

  Picture shown_;
};

}  // namespace nira
