// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace nira {

/// Two push-button faces side by side: the left one steps to the previous size, the right one to
/// the next. Faces are drawn pressed only while the mouse button is down on them.
class SizeStepper : public QWidget {
  Q_OBJECT

 public:
  explicit SizeStepper(QWidget* parent);

  QSize sizeHint() const override { return size_; }
  void Rescale(QSize size);

 Q_SIGNALS:
  void Previous();
  void Next();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  enum class Face { None, Left, Right };

  void PaintFace(QPainter& painter, const QRect& place, Face face) const;

  QSize size_{32, 16};
  Face pressed_ = Face::None;
};

}  // namespace nira
