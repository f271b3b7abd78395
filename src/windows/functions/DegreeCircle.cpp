// SPDX-License-Identifier: Apache-2.0
#include "functions/DegreeCircle.h"

#include "controls/CamBar.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace nira {

namespace {

constexpr double pi = 3.141592;  // the pointer's own, as it has always been
constexpr int circleTick = 6;    // pixels
constexpr int circleLongTick = 11;
constexpr int strips = 16;  // pieces of the pointer that are repainted as rectangles

}  // namespace

DegreeCircle::DegreeCircle() {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setFocusPolicy(Qt::TabFocus);
}

void DegreeCircle::Point(int degree) {
  if (degree == degree_) return;
  update(Strip(degree_) + Strip(degree));
  degree_ = degree;
}

QFont DegreeCircle::Numbers() const {
  QFont numbers = font();
  const int pixels = QFontInfo(font()).pixelSize();
  numbers.setPixelSize(std::clamp(std::min(width(), height()) / 30, pixels, 2 * pixels));
  return numbers;
}

/// Room for the ticks and the numbers around the circle.
int DegreeCircle::Margin() const {
  return circleLongTick + QFontMetrics(Numbers()).horizontalAdvance(QStringLiteral("000")) + 8;
}

int DegreeCircle::DemoRadius() const {
  return std::max(1, (std::min(width(), height()) - 2 * Margin()) / 2);
}

QPointF DegreeCircle::Centre() const {
  return QRectF(rect()).center();
}

QPointF DegreeCircle::At(double radius, int degree) const {
  const double r = degree * pi / 180;
  return Centre() + radius * QPointF(std::cos(r), std::sin(r));
}

QPointF DegreeCircle::EndOf(int degree) const {
  return At(DemoRadius(), degree);
}

std::optional<int> DegreeCircle::DegreeAt(const QPointF& place) const {
  const QPointF way = place - Centre();
  if (std::hypot(way.x(), way.y()) > DemoRadius() + Margin()) return std::nullopt;
  const auto degree = static_cast<int>(std::lround(std::atan2(way.y(), way.x()) * 180 / pi));
  return (degree + 360) % 360;
}

double DegreeCircle::PointerWidth() const {
  return std::max(2.0, DemoRadius() / 150.0);
}

QRegion DegreeCircle::Strip(int degree) const {
  const double room = PointerWidth() + 1;
  QRegion region;
  for (int i = 0; i < strips; ++i) {
    const QPointF from = At(DemoRadius() * i / double(strips), degree);
    const QPointF to = At(DemoRadius() * (i + 1) / double(strips), degree);
    region += QRectF(from, to).normalized().adjusted(-room, -room, room, room).toAlignedRect();
  }
  return region;
}

void DegreeCircle::DrawFace() {
  const double ratio = devicePixelRatioF();
  face_ = QPixmap(size() * ratio);
  face_.setDevicePixelRatio(ratio);
  face_.fill(palette().color(QPalette::Window));
  QPainter painter(&face_);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor frame = QColor::fromRgb(colours::frame);
  painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 3) : QPen(frame, 1));
  painter.setBrush(QColor::fromRgb(colours::bar));
  const double outer = DemoRadius() + Margin() - 2;
  painter.drawEllipse(Centre(), outer, outer);
  DrawScale(painter);
}

void DegreeCircle::DrawScale(QPainter& painter) const {
  const double radius = DemoRadius();
  painter.setPen(QPen(QColor::fromRgb(colours::text), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(Centre(), radius, radius);
  painter.setFont(Numbers());
  const double middle = (radius + circleLongTick + radius + Margin()) / 2;
  for (int degree = 0; degree < 360; degree += 10) {
    const bool numbered = degree % 30 == 0;
    painter.drawLine(At(radius, degree),
                     At(radius + (numbered ? circleLongTick : circleTick), degree));
    if (!numbered) continue;
    QRectF place(0, 0, Margin() + 8, Margin());
    place.moveCenter(At(middle, degree));
    painter.drawText(place, Qt::AlignCenter, QString::number(degree));
  }
}

void DegreeCircle::paintEvent(QPaintEvent* event) {
  if (face_.isNull() || face_.devicePixelRatio() != devicePixelRatioF()) DrawFace();
  QPainter painter(this);
  const double ratio = face_.devicePixelRatio();
  for (const QRect& part : event->region()) {
    painter.drawPixmap(QRectF(part), face_,
                       QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio));
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor::fromRgb(colours::lit), PointerWidth()));
  painter.drawLine(Centre(), EndOf(degree_));
}

void DegreeCircle::AskFor(const QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  if (const auto degree = DegreeAt(event->position())) Q_EMIT Asked(*degree);
}

void DegreeCircle::mousePressEvent(QMouseEvent* event) {
  AskFor(event);
}

void DegreeCircle::mouseMoveEvent(QMouseEvent* event) {
  AskFor(event);
}

void DegreeCircle::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Right:
      return Q_EMIT Asked((degree_ + 1) % 360);
    case Qt::Key_Left:
      return Q_EMIT Asked((degree_ + 359) % 360);
    case Qt::Key_PageDown:
      return Q_EMIT Asked((degree_ + 10) % 360);
    case Qt::Key_PageUp:
      return Q_EMIT Asked((degree_ + 350) % 360);
    case Qt::Key_Home:
      return Q_EMIT Asked(0);
    default:
      QWidget::keyPressEvent(event);
  }
}

void DegreeCircle::focusInEvent(QFocusEvent*) {
  face_ = QPixmap();
  update();
}

void DegreeCircle::focusOutEvent(QFocusEvent*) {
  face_ = QPixmap();
  update();
}

void DegreeCircle::resizeEvent(QResizeEvent*) {
  face_ = QPixmap();
  setMaximumWidth(std::max(minimumSizeHint().width(), height()));  // never a wide place, half empty
}

void DegreeCircle::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
    face_ = QPixmap();
    update();
  }
}

}  // namespace nira
