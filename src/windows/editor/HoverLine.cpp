// SPDX-License-Identifier: Apache-2.0
#include "editor/HoverLine.h"

#include "controls/CamBar.h"
#include "controls/Shades.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace nira {

namespace {

constexpr QRgb lineColour = 0xffb3261e;
constexpr QRgb lineText = 0xffffffff;
constexpr QRgb lampRing = 0xff7a1a14;
constexpr double lineWidth = 1.5;
constexpr int outlineWidth = 2;

}  // namespace

HoverLine::HoverLine(QWidget* diagram) : DiagramLayer("HoverLine", diagram) {}

void HoverLine::PointAt(int degree, int cam) {
  Picture next = shown_;
  next.degree = degree;
  next.row = cam;
  Show(next);
}

void HoverLine::Pin(int degree) {
  Picture next = shown_;
  if (next.pins.size() == 2) next.pins.pop_back();
  next.pins.push_back(degree);
  Show(next);
}

void HoverLine::Step(int degrees) {
  if (!Pinned()) return;
  Picture next = shown_;
  constexpr int cycle = CamProgram::Degrees;
  next.pins.back() = (next.pins.back() + degrees % cycle + cycle) % cycle;
  Show(next);
}

void HoverLine::Free() {
  Picture next = shown_;
  next.pins.clear();
  Show(next);
}

int HoverLine::Degree() const {
  return Pinned() ? shown_.pins.back() : shown_.degree;
}

int HoverLine::Difference() const {
  if (shown_.pins.size() < 2) return -1;
  return (shown_.pins[1] - shown_.pins[0] + CamProgram::Degrees) % CamProgram::Degrees;
}

void HoverLine::Light(int cam, bool on) {
  const auto index = static_cast<std::size_t>(cam);
  if (shown_.lamps[index] == on) return;
  shown_.lamps[index] = on;
  update(Place().Lamp(cam));
}

/// Only what changes is painted anew.
void HoverLine::Show(const Picture& picture) {
  const QRegion lines = Places();
  const QRegion outline = Outline();
  shown_ = picture;
  if (lines != Places()) update(lines + Places());
  if (outline != Outline()) update(outline + Outline());
}

std::vector<int> HoverLine::Lines() const {
  if (Pinned()) return shown_.pins;
  return shown_.degree < 0 ? std::vector<int>{} : std::vector{shown_.degree};
}

QString HoverLine::Caption(std::size_t line) const {
  const QString degree = QString::number(Lines()[line]) + u'°';
  if (line == 0) return degree;
  return degree + QStringLiteral("  +") + QString::number(Difference()) + u'°';
}

/// The degree of a line, on the upper scale or on the lower one.
QRect HoverLine::Pill(std::size_t line, bool upper) const {
  const QFontMetrics metrics(ScaleFont());
  const int width = metrics.horizontalAdvance(Caption(line)) + 12;
  const int height = metrics.height() + 2;
  const QRect& bars = Place().bars;
  const int top =
      upper ? bars.top() - DiagramPlace::Tick - 2 - height : bars.bottom() + DiagramPlace::Tick + 2;
  const int left = Place().X(Lines()[line]) - width / 2;
  return {std::clamp(left, 0, std::max(0, this->width() - width)), std::max(0, top), width, height};
}

QRegion HoverLine::Places() const {
  QRegion places;
  const std::vector<int> lines = Lines();
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const QRect above = Pill(line, true);
    const QRect below = Pill(line, false);
    const int x = Place().X(lines[line]);
    places += QRect(QPoint(x - 2, above.bottom()), QPoint(x + 2, below.top()));
    places += above.adjusted(-1, -1, 1, 1);
    places += below.adjusted(-1, -1, 1, 1);
  }
  return places;
}

QRegion HoverLine::Outline() const {
  if (shown_.row < 0) return {};
  const QRect row = Place().Row(shown_.row);
  constexpr int w = outlineWidth;
  return QRegion(row) - row.adjusted(w, w, -w, -w);
}

void HoverLine::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintLamps(painter, event->region());
  if (shown_.row >= 0) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(Place().Row(shown_.row)).adjusted(1, 1, -1, -1));
  }
  for (std::size_t line = 0; line < Lines().size(); ++line) PaintLine(painter, line);
}

/// Lit or not is told by the form as well: a disc with a dark ring, or an empty ring.
void HoverLine::PaintLamps(QPainter& painter, const QRegion& where) const {
  const QPen dark(QColor::fromRgb(lampRing), 1);
  const QPen quiet(SecondaryText(palette()), 1);
  for (int cam = 0; cam < Place().numCams; ++cam) {
    const QRect lamp = Place().Lamp(cam);
    if (!where.intersects(lamp)) continue;
    const bool on = shown_.lamps[static_cast<std::size_t>(cam)];
    painter.setPen(on ? dark : quiet);
    painter.setBrush(on ? QBrush(QColor::fromRgb(colours::lit)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(lamp).adjusted(0.5, 0.5, -0.5, -0.5));
  }
}

void HoverLine::PaintLine(QPainter& painter, std::size_t line) const {
  const QColor red = QColor::fromRgb(lineColour);
  const QRect above = Pill(line, true);
  const QRect below = Pill(line, false);
  const double x = Place().X(Lines()[line]) + 0.5;
  painter.setPen(QPen(red, lineWidth));
  painter.drawLine(QPointF(x, above.bottom()), QPointF(x, below.top()));
  painter.setFont(ScaleFont());
  for (const QRect& pill : {above, below}) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(red);
    painter.drawRoundedRect(pill, 3, 3);
    painter.setPen(QColor::fromRgb(lineText));
    painter.drawText(pill, Qt::AlignCenter, Caption(line));
  }
}

}  // namespace nira
