// SPDX-License-Identifier: Apache-2.0
#include "editor/StateChip.h"

#include "controls/Shades.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace nira {

StateChip::StateChip(const char* name, QWidget* parent) : QLabel(parent) {
  setObjectName(QString::fromLatin1(name));
  setTextFormat(Qt::PlainText);
}

void StateChip::ShowState(const QString& text, bool amber, const QStringList& all) {
  constexpr int margins = 24;
  int widest = 0;
  for (const QString& one : all) widest = std::max(widest, fontMetrics().horizontalAdvance(one));
  setMinimumWidth(widest + margins);
  setText(text);
  amber_ = amber;
  update();
}

void StateChip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  if (amber_) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(amberGround));
    painter.drawRoundedRect(rect().adjusted(2, 1, -2, -1), 4, 4);
    painter.setPen(Qt::black);
  }
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
}

void StateChip::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT Clicked();
}

}  // namespace nira
