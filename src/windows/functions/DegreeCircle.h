// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPixmap>
#include <QRegion>
#include <QWidget>

#include <optional>

namespace nira {

/// The circle of the cycle, degree 0 to the right and the degrees running clockwise, with its
/// pointer. A move of the pointer repaints the pointer's own strip only. A press or the arrow keys
/// ask for another degree; the owner decides whether the pointer goes there.
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

  /// The degree of a place in the widget, 0..359; none outside the drawn disc.
  std::optional<int> DegreeAt(const QPointF& place) const;

  QSize sizeHint() const override { return {420, 420}; }
  QSize minimumSizeHint() const override { return {240, 240}; }

 Q_SIGNALS:
  void Asked(int degree);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
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
  void AskFor(const QMouseEvent* event);
  void DrawFace();
  void DrawScale(QPainter& painter) const;

  int degree_ = 0;
  QPixmap face_;  // all but the pointer
};

}  // namespace nira
