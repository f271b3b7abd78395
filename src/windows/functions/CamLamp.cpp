// SPDX-License-Identifier: Apache-2.0
#include "functions/CamLamp.h"

#include "controls/CamBar.h"
#include "controls/PlainTip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace nira {

namespace {

constexpr int leastLamp = 28;  // pixels
constexpr int lampGap = 2;     // between the lamp and its description
constexpr int textLines = 2;
constexpr int largestText = 18;  // pixels

}  // namespace

CamLamp::CamLamp(int cam, const QString& description)
    : number_(QString::number(cam + 1)), description_(description) {
  setObjectName(QStringLiteral("Label1_") + QString::number(cam));
  Speak();
  setToolTip(PlainTip(description));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize CamLamp::minimumSizeHint() const {
  return {64, leastLamp + lampGap + textLines * fontMetrics().height()};
}

void CamLamp::Light(bool on) {
  if (on == lit_) return;
  lit_ = on;
  update(LampPlace());
}

void CamLamp::Speak() {
  if (spoken_ == lit_) return;
  spoken_ = lit_;
  setAccessibleName(u'C' + number_ + u' ' + description_ +
                    (lit_ ? QStringLiteral(", ON") : QStringLiteral(", OFF")));
}

/// Grows with the place that the lamp has.
QFont CamLamp::TextFont() const {
  const int pixels = QFontInfo(font()).pixelSize();
  QFont text = font();
  text.setPixelSize(std::clamp(height() / 7, pixels, std::max(pixels, largestText)));
  return text;
}

QRect CamLamp::LampPlace() const {
  const int room = height() - lampGap - textLines * QFontMetrics(TextFont()).height();
  const int side = std::max(1, std::min(width(), room));
  return {(width() - side) / 2, 0, side, side};
}

void CamLamp::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (hasFocus()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
  const QRect place = LampPlace();
  if (event->region().intersects(place)) PaintLamp(painter, place);
  const QRect below(0, place.bottom() + 1 + lampGap, width(), height());
  if (!event->region().intersects(below)) return;
  painter.setFont(TextFont());
  painter.setPen(palette().color(QPalette::WindowText));
  QTextOption option(Qt::AlignHCenter | Qt::AlignTop);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  painter.drawText(QRectF(below), description_, option);
}

void CamLamp::PaintLamp(QPainter& painter, const QRect& place) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor::fromRgb(colours::frame), 2));
  painter.setBrush(QColor::fromRgb(lit_ ? colours::lit : colours::text));
  painter.drawEllipse(QRectF(place).adjusted(1, 1, -1, -1));
  QFont number = font();
  number.setPixelSize(std::max(8, place.height() * 2 / 5));
  number.setBold(true);
  painter.setFont(number);
  painter.setPen(QColor::fromRgb(lit_ ? colours::text : colours::bar));
  painter.drawText(place, Qt::AlignCenter, number_);
}

void CamLamp::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT DblClick();
}

void CamLamp::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return Q_EMIT Moved(-1, 0);
    case Qt::Key_Right:
      return Q_EMIT Moved(1, 0);
    case Qt::Key_Up:
      return Q_EMIT Moved(0, -1);
    case Qt::Key_Down:
      return Q_EMIT Moved(0, 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      return Q_EMIT DblClick();
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace nira
