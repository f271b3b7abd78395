// SPDX-License-Identifier: Apache-2.0
#include "editor/SizeStepper.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace nira {

SizeStepper::SizeStepper(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SizeStepper::Rescale(QSize size) {
  size_ = size;
  setFixedSize(size);
}

void SizeStepper::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int half = width() / 2;
  PaintFace(painter, QRect(0, 0, half, height()), Face::Left);
  PaintFace(painter, QRect(half, 0, width() - half, height()), Face::Right);
}

void SizeStepper::PaintFace(QPainter& painter, const QRect& place, Face face) const {
  QStyleOptionButton option;
  option.initFrom(this);
  option.rect = place;
  option.state |= pressed_ == face ? QStyle::State_Sunken : QStyle::State_Raised;
  style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter, this);
  QStyleOption arrow;
  arrow.initFrom(this);
  const int side = std::min(place.width(), place.height()) * 3 / 4;
  arrow.rect = QRect(0, 0, side, side);
  arrow.rect.moveCenter(place.center());
  style()->drawPrimitive(
      face == Face::Left ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight, &arrow,
      &painter, this);
}

void SizeStepper::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = event->pos().x() < width() / 2 ? Face::Left : Face::Right;
  update();
  if (pressed_ == Face::Left) {
    Q_EMIT Previous();
  } else {
    Q_EMIT Next();
  }
}

void SizeStepper::mouseReleaseEvent(QMouseEvent*) {
  pressed_ = Face::None;
  update();
}

void SizeStepper::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);  // quick presses are presses
}

}  // namespace nira
