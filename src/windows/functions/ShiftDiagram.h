// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamBar.h"

#include <QFrame>
#include <QLabel>
#include <QWidget>

#include <array>

namespace nira {

class ShiftArrow;

/// A cam as it is programmed and, under it, as the advance shifts it, over one scale of degrees.
/// An arrow between the two says how far and which way.
class ShiftDiagram : public QWidget {
  Q_OBJECT

 public:
  /// The captions to the left of the two bars.
  ShiftDiagram(const QString& programmed, const QString& shifted);

  /// `degrees` is by how many the shifted row is earlier, 0..359.
  void Draw(const CamRow& programmed, const CamRow& shifted, int degrees);

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
  ShiftArrow* arrow_;
  std::array<QLabel*, 2 * Quarters> marks_{};  // Label1 .. Label5 above, Label6 .. Label10 below
  std::array<QFrame*, 8>
      lines_{};  // Line1 .. Line8: four sides, three quarters, below the upper bar
  QRect bars_;
};

}  // namespace nira
