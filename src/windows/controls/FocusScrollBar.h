// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QScrollBar>

namespace nira {

/// A scroll bar that stands on its own: as high as a finger needs, reached with Tab, and framed
/// while it has the focus.
class FocusScrollBar : public QScrollBar {
  Q_OBJECT

 public:
  FocusScrollBar(const char* name, Qt::Orientation orientation);

  /// Lowest and highest value, and the step of a press beside the slider.
  void SetRange(int lowest, int highest, int largeChange);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace nira
