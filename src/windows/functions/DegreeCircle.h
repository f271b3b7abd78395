// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPixmap>
#include <QRegion>
#include <QWidget>

namespace nira {

/// The circle of the cycle, degree 0 to the right and the degrees running clockwise, with its
/// pointer. A move of the pointer repaints the pointer's own strip only.
class DegreeCircle : public QWidget {
  Q_OBJECT

 public:
  DegreeCircle();

  /// Points to a degree 0..359.
  void Point(int degree);

  /// Radius of the drawn circle in pixels: half the drawing area, whole.
  int DemoRadius() const;

  /// Where the pointer ends at a degree, in the widget's pixels.
  QPointF EndOf(int degree) const;

  QSize sizeHint() const override { return {420, 420}; }
  QSize minimumSizeHint() const override { return {240, 240}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QPointF Centre() const;
  QPointF At(double radius, int degree) const;
  QFont Numbers() const;
  int Margin() const;
  double PointerWidth() const;
  QRegion Strip(int degree) const;
  void DrawFace();
  void DrawScale(QPainter& painter) const;

  int degree_ = 0;
  QPixmap face_;  // all but the pointer
};

}  // namespace nira
