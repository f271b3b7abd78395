// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace nira {

/// Between the two bars of the advance calculator: an arrow from where the cam first goes ON to
/// where it does so with the advance, with the degrees between them. As wide as the bars.
class ShiftArrow : public QWidget {
  Q_OBJECT

 public:
  explicit ShiftArrow(QWidget* parent);

  /// From a degree 0..359, earlier by so many degrees 0..359; no arrow for none.
  void Show(int from, int degrees);

  /// "−60°"; empty while nothing is shifted.
  QString Words() const;

  QSize sizeHint() const override { return {0, fontMetrics().height() + 8}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double XOf(int degree) const;
  void PaintWords(QPainter& painter, double end) const;

  int from_ = 0;
  int degrees_ = 0;
};

}  // namespace nira
