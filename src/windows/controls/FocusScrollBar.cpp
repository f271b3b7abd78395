// SPDX-License-Identifier: Apache-2.0
#include "controls/FocusScrollBar.h"

#include <QPainter>

namespace nira {

namespace {

constexpr int thickness = 24;  // pixels
constexpr int shortest = 120;  // pixels

}  // namespace

FocusScrollBar::FocusScrollBar(const char* name, Qt::Orientation orientation)
    : QScrollBar(orientation) {
  setObjectName(QString::fromLatin1(name));
  setFocusPolicy(Qt::StrongFocus);
  setContextMenuPolicy(Qt::PreventContextMenu);
  if (orientation == Qt::Horizontal) {
    setInvertedControls(false);  // the bar of a value: Right, Up, PageUp and the wheel up are more
    setFixedHeight(thickness);
    setMinimumWidth(shortest);
  } else {
    setFixedWidth(thickness);
    setMinimumHeight(shortest);
  }
}

void FocusScrollBar::SetRange(int lowest, int highest, int largeChange) {
  setRange(lowest, highest);
  setPageStep(largeChange);
}

void FocusScrollBar::paintEvent(QPaintEvent* event) {
  QScrollBar::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace nira
