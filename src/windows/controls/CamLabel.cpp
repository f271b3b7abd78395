// SPDX-License-Identifier: Apache-2.0
#include "controls/CamLabel.h"

#include "controls/PlainTip.h"

#include <QMouseEvent>
#include <QPainter>

namespace nira {

CamLabel::CamLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setMouseTracking(true);
}

/// Measured once for a text, its type and its room.
const QString& CamLabel::Shown() {
  const int room = contentsRect().width() - 2 * margin();
  if (measured_.text != text() || measured_.font != font() || measured_.room != room) {
    const QFontMetrics metrics = fontMetrics();
    const bool fits = metrics.horizontalAdvance(text()) <= room;
    measured_ = {text(), font(), room,
                 fits ? text() : metrics.elidedText(text(), Qt::ElideRight, room)};
  }
  return measured_.shown;
}

bool CamLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    setToolTip(Shown() == text() ? QString() : PlainTip(text()));
  }
  return QLabel::event(event);
}

void CamLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (autoFillBackground()) painter.fillRect(rect(), palette().window());
  const QRect place = contentsRect().adjusted(margin(), 0, -margin(), 0);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(place, static_cast<int>(alignment()) | Qt::TextSingleLine, Shown());
}

void CamLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT Click();
}

void CamLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT DblClick();
}

}  // namespace nira
