// SPDX-License-Identifier: Apache-2.0
#include "functions/ValueScroll.h"

#include <QMouseEvent>

namespace nira {

/// The release of a press over which a window opened never comes: without it the bar would go on
/// scrolling by itself.
void ValueScroll::focusOutEvent(QFocusEvent* event) {
  QMouseEvent release(QEvent::MouseButtonRelease, QPointF(-1, -1), mapToGlobal(QPointF(-1, -1)),
                      Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  mouseReleaseEvent(&release);
  FocusScrollBar::focusOutEvent(event);
}

}  // namespace nira
