// SPDX-License-Identifier: Apache-2.0
#include "line/ReadyLamp.h"

#include <QPainter>

namespace nira {

ReadyLamp::ReadyLamp(QWidget* parent) : QWidget(parent) {
  QSizePolicy fixed(QSizePolicy::Fixed, QSizePolicy::Fixed);
  fixed.setRetainSizeWhenHidden(true);
  setSizePolicy(fixed);
}

void ReadyLamp::Show(bool ready) {
  fill_ = ready ? Green : Red;
  show();
  update();
}

/// The rim is drawn in its own colour too, so that the lamp reads on every theme.
void ReadyLamp::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(fill_));
  painter.setPen(QPen(QColor(fill_).darker(220), 1.5));
  painter.drawEllipse(QRectF(rect()).adjusted(2, 2, -2, -2));
}

}  // namespace nira
