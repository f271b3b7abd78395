#include "functions/ValueScroll.h"

#include <QMouseEvent>
#include <QPainter>

namespace nira {

ValueScroll::ValueScroll(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setContextMenuPolicy(Qt::NoContextMenu);
  setInvertedControls(false);  // Right, Up and PageUp are more, as on every other bar of a value
}

void ValueScroll::paintEvent(QPaintEvent* event) {
  QScrollBar::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ValueScroll::focusInEvent(QFocusEvent* event) {
  QScrollBar::focusInEvent(event);
  update();
}

/// The release of a press over which a window opened never comes: without it the bar would go on
/// scrolling by itself.
void ValueScroll::focusOutEvent(QFocusEvent* event) {
  QMouseEvent release(QEvent::MouseButtonRelease, QPointF(-1, -1), mapToGlobal(QPointF(-1, -1)),
                      Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  mouseReleaseEvent(&release);
  QScrollBar::focusOutEvent(event);
  update();
}

}  // namespace nira
