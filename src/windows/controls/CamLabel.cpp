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

void CamLabel::ShowText(const QString& text) {
  setText(text);
  const bool cut = fontMetrics().horizontalAdvance(text) > contentsRect().width() - 2 * margin();
  setToolTip(cut ? PlainTip(text) : QString());
}

void CamLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (autoFillBackground()) painter.fillRect(rect(), palette().window());
  const QRect place = contentsRect().adjusted(margin(), 0, -margin(), 0);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(place, static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

void CamLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT Click();
}

void CamLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT DblClick();
}

}  // namespace nira
