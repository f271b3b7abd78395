// SPDX-License-Identifier: Apache-2.0
#include "functions/ShiftArrow.h"

#include "model/CamProgram.h"

#include <QPainter>

namespace nira {

namespace {

constexpr double arrowHead = 6;  // pixels
constexpr double wordsGap = 6;

}  // namespace

ShiftArrow::ShiftArrow(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("ShiftArrow"));
}

void ShiftArrow::Show(int from, int degrees) {
  from_ = from;
  degrees_ = degrees;
  setAccessibleName(Words());
  update();
}

QString ShiftArrow::Words() const {
  if (degrees_ == 0) return {};
  return QStringLiteral("\u2212%1\u00b0").arg(degrees_);
}

double ShiftArrow::XOf(int degree) const {
  return static_cast<double>(width()) * degree / CamProgram::Degrees;
}

/// One that passes degree 0 goes on from 360.
void ShiftArrow::paintEvent(QPaintEvent*) {
  if (degrees_ == 0) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::WindowText), 1.5));
  painter.setBrush(palette().color(QPalette::WindowText));
  const double y = height() / 2.0;
  const double start = XOf(from_);
  const bool around = from_ < degrees_;
  const double end = XOf(from_ - degrees_ + (around ? CamProgram::Degrees : 0));
  painter.drawLine(QPointF(start, y - arrowHead), QPointF(start, y + arrowHead));
  painter.drawLine(QPointF(start, y), QPointF(around ? 0 : end, y));
  if (around) painter.drawLine(QPointF(width(), y), QPointF(end, y));
  painter.drawPolygon(QPolygonF(
      {{end, y}, {end + arrowHead, y - arrowHead / 2}, {end + arrowHead, y + arrowHead / 2}}));
  PaintWords(painter, end);
}

/// To the right of the start, where the arrow itself is not unless it comes round; where there is
/// no room in the middle of its longest part.
void ShiftArrow::PaintWords(QPainter& painter, double end) const {
  const double start = XOf(from_);
  const double room = fontMetrics().horizontalAdvance(Words()) + 4;
  double left = start + wordsGap;
  if (left + room > width() || (end > start && end < left + room)) {
    const bool after = end > start && width() - end > start;
    const double from = after || end < start ? end : 0;
    left = (from + (after ? width() : start) - room) / 2;
  }
  const QRectF place(left, (height() - fontMetrics().height()) / 2.0, room, fontMetrics().height());
  painter.fillRect(place, palette().color(QPalette::Window));
  painter.drawText(place, Qt::AlignCenter, Words());
}

}  // namespace nira
