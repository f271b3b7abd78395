// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>

namespace nira {

/// One line of plain text, as wide as its place: what is too long for it loses its middle, so that
/// of a path both ends stay. `text()` is the whole text.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  ElidedLabel();

  QSize sizeHint() const override { return {0, fontMetrics().height()}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace nira
