// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamBar.h"

#include <QFrame>
#include <QLabel>
#include <QWidget>

#include <array>

namespace nira {

/// A cam as it is programmed and, under it, as the advance shifts it, over one scale of degrees.
class ShiftDiagram : public QWidget {
  Q_OBJECT

 public:
  /// The captions to the left of the two bars.
  ShiftDiagram(const QString& programmed, const QString& shifted);

  void Draw(const CamRow& programmed, const CamRow& shifted);

  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  static constexpr std::size_t Quarters = 5;

  QLabel* Caption(const QString& text);
  void ArrangeScale();
  int ScaleHeight() const;
  int XOf(int degree) const;  // within the widget

  QLabel* captions_[2];
  CamBar* programmed_;
  CamBar* barra_;
  std::array<QLabel*, 2 * Quarters> marks_{};  // Label1 .. Label5 above, Label6 .. Label10 below
  std::array<QFrame*, 8> lines_{};  // Line1 .. Line8: four sides, three quarters, between the bars
  QRect bars_;
};

}  // namespace nira
