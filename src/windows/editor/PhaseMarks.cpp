// SPDX-License-Identifier: Apache-2.0
#include "editor/PhaseMarks.h"

#include <QPainter>
#include <QPolygon>

#include <algorithm>

namespace nira {

namespace {

constexpr QRgb flagText = 0xffffffff;
constexpr int frame = 2;
constexpr QSize handle(5, 7);
constexpr int flagGap = 6;  // from the end of the phase to its flag
constexpr int pointer = 4;  // half the width of what points from a flag to the bar
constexpr int reach = 4;    // pixels from an end that still take hold of it
constexpr int slack = 5;    // of frame and handles around a box

/// The boxes of a phase: two when it goes across the end of the cycle.
std::vector<Run> RunsOf(const Phase& phase) {
  constexpr int cycle = CamProgram::Degrees;
  if (phase.on < phase.off) return {{phase.on, phase.off, false, phase.off == cycle}};
  std::vector<Run> runs = {{phase.on, cycle, true, true}};
  if (phase.off > 0) runs.push_back({0, phase.off, true, false});
  return runs;
}

/// The boxes of a phase in the diagram, from its ON end on.
std::vector<QRect> BoxesOf(const CamBar* bar, const Phase& phase) {
  std::vector<QRect> boxes;
  for (const Run& run : RunsOf(phase)) boxes.push_back(bar->BoxOf(run).translated(bar->pos()));
  return boxes;
}

void PaintHandle(QPainter& painter, int x, const QRect& box) {
  QRect place({}, handle.boundedTo({handle.width(), box.height()}));
  place.moveCenter({x, box.center().y()});
  painter.fillRect(place, QColor::fromRgb(colours::text));
  painter.fillRect(place.adjusted(1, 1, -1, -1), QColor::fromRgb(colours::bar));
}

}  // namespace

PhaseMarks::PhaseMarks(QWidget* diagram) : DiagramLayer("PhaseMarks", diagram) {}

void PhaseMarks::Select(const CamBar* bar, const std::optional<Phase>& phase) {
  if (bar == bar_ && phase == phase_) return;
  const QRegion before = Places();
  bar_ = bar;
  phase_ = phase;
  update(before + Places());
}

std::optional<PhasePart> PhaseMarks::PartAt(const QPoint& place) const {
  if (!phase_ || !bar_->geometry().contains(place)) return std::nullopt;
  const std::optional<Run> run = bar_->RunAt(place.x() - bar_->x());
  if (run && !phase_->Contains(run->on)) return std::nullopt;
  const std::vector<QRect> boxes = BoxesOf(bar_, *phase_);
  const QRect& first = boxes.front();
  const QRect& last = boxes.back();
  // Of a short run each third is one of the three.
  const auto inside = [](const QRect& box) { return std::min(reach, box.width() / 3); };
  const int fromOn = place.x() - first.left();
  const int toOff = last.right() - place.x();
  if (fromOn >= -reach && fromOn <= inside(first)) return PhasePart::On;
  if (toOff >= -reach && toOff <= inside(last)) return PhasePart::Off;
  if (run) return PhasePart::Whole;
  return std::nullopt;
}

void PhaseMarks::Preview(const CamBar* bar, const std::vector<Phase>& goes,
                         const std::vector<Phase>& comes) {
  if (bar == previewBar_ && goes == goes_ && comes == comes_) return;
  const QRegion before = PreviewPlaces();
  previewBar_ = bar;
  goes_ = goes;
  comes_ = comes;
  update(before + PreviewPlaces());
}

/// The flags stand outside the phase, and beside each other where there is no room.
PhaseMarks::Flags PhaseMarks::FlagPlaces() const {
  const QFontMetrics metrics(ScaleFont());
  const int width = metrics.horizontalAdvance(QStringLiteral("000")) + 8;
  const int height = metrics.height() + 2;
  const int top = std::max(0, Place().bars.top() - DiagramPlace::Tick - 2 - height);
  const std::vector<QRect> boxes = BoxesOf(bar_, *phase_);
  Flags flags;
  flags.onX = boxes.front().left();
  flags.offX = boxes.back().right();
  const int right = std::min(flags.offX + flagGap, this->width() - width);
  const int left = std::max(0, flags.onX - flagGap - width);
  flags.off = QRect(right, top, width, height);
  flags.on = QRect(left, top, width, height);
  if (flags.on.intersects(flags.off)) flags.on.moveRight(flags.off.left() - 2);
  return flags;
}

bool PhaseMarks::Covers(const QRect& place) const {
  if (!phase_) return false;
  const Flags flags = FlagPlaces();
  return flags.on.intersects(place) || flags.off.intersects(place);
}

QRegion PhaseMarks::Places() const {
  if (!phase_) return {};
  QRegion places;
  for (const QRect& box : BoxesOf(bar_, *phase_))
    places += box.adjusted(-slack, -slack, slack, slack);
  const Flags flags = FlagPlaces();
  for (const QRect& flag : {flags.on, flags.off}) {
    places += flag.adjusted(-1, -1, 1, 1);
  }
  for (const int x : {flags.onX, flags.offX}) {
    places +=
        QRect(QPoint(x - pointer - 1, flags.on.top()), QPoint(x + pointer + 1, Place().bars.top()));
  }
  return places;
}

QRegion PhaseMarks::PreviewPlaces() const {
  QRegion places;
  for (const std::vector<Phase>* phases : {&goes_, &comes_}) {
    for (const Phase& phase : *phases) {
      for (const QRect& box : BoxesOf(previewBar_, phase)) places += box.adjusted(-1, -1, 2, 2);
    }
  }
  return places;
}

void PhaseMarks::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPreview(painter);
  if (!phase_) return;
  PaintFrame(painter);
  PaintFlags(painter);
}

void PhaseMarks::PaintPreview(QPainter& painter) const {
  const QColor black = QColor::fromRgb(colours::text);
  for (const Phase& phase : goes_) {
    const bool selected = previewBar_->Shown().selected;
    for (const QRect& box : BoxesOf(previewBar_, phase)) {
      painter.fillRect(box, QColor::fromRgb(selected ? colours::selectedBar : colours::bar));
      painter.fillRect(box, QBrush(black, Qt::BDiagPattern));
    }
  }
  painter.setPen(QPen(black, 1, Qt::DashLine));
  for (const Phase& phase : comes_) {
    for (const QRect& box : BoxesOf(previewBar_, phase)) {
      painter.drawRect(box.adjusted(0, 0, -1, -1));
    }
  }
}

void PhaseMarks::PaintFrame(QPainter& painter) const {
  const std::vector<QRect> boxes = BoxesOf(bar_, *phase_);
  painter.setPen(
      QPen(QColor::fromRgb(colours::text), frame, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  for (const QRect& box : boxes) painter.drawRect(box.adjusted(0, 0, 1, 1));
  PaintHandle(painter, boxes.front().left(), boxes.front());
  PaintHandle(painter, boxes.back().right(), boxes.back());
}

void PhaseMarks::PaintFlags(QPainter& painter) const {
  const Flags flags = FlagPlaces();
  const auto paint = [&](const QRect& flag, int x, int degree) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(colours::selectedRun));
    painter.drawRoundedRect(flag, 2, 2);
    const int tip = Place().bars.top() - 2;
    const int top = tip - DiagramPlace::Tick + 2;
    painter.drawPolygon(QPolygon({{x - pointer, top}, {x + pointer, top}, {x, tip}}));
    painter.setPen(QColor::fromRgb(flagText));
    painter.drawText(flag, Qt::AlignCenter, QString::number(degree));
  };
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(ScaleFont());
  paint(flags.on, flags.onX, phase_->on);
  paint(flags.off, flags.offX, phase_->off);
}

}  // namespace nira
