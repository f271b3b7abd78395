// SPDX-License-Identifier: Apache-2.0
#include "controls/CamBar.h"

#include <QList>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace nira {

namespace {

constexpr int margin = 1;    // inset of every box left and above; twice that right and below
constexpr int leastBox = 2;  // pixels: the shortest run stays visible
constexpr QRgb border = 0xffb8b8b8;
constexpr QRgb quarterLine = 0x28000000;

}  // namespace

CamBar::CamBar(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
}

void CamBar::Show(Picture picture) {
  if (picture == picture_) return;
  picture_ = std::move(picture);
  update();
}

void CamBar::SetScale(double unitsPerDegree) {
  if (unitsPerDegree == unitsPerDegree_) return;
  unitsPerDegree_ = unitsPerDegree;
  update();
}

QRect CamBar::Background() const {
  return QRect(0, 0, width(), height()).adjusted(margin, margin, -2 * margin, -2 * margin);
}

QRect CamBar::BoxOf(const Run& run) const {
  const QRect inside = Background();
  const int right = inside.right() + 1;
  const auto at = [&](int degree) {
    return std::clamp(static_cast<int>(std::lround(degree * unitsPerDegree_)), inside.left(),
                      right);
  };
  int from = at(run.on);
  const int to = std::min(right, std::max(run.toTheEdge ? right : at(run.off), from + leastBox));
  from = std::max(inside.left(), std::min(from, to - leastBox));
  return {from, inside.top(), to - from, inside.height()};
}

std::optional<Run> CamBar::RunAt(int x) const {
  for (const Run& run : picture_.runs) {
    const QRect box = BoxOf(run);
    if (box.left() <= x && x <= box.right()) return run;
  }
  return std::nullopt;
}

void CamBar::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor::fromRgb(border));
  painter.fillRect(Background(),
                   QColor::fromRgb(picture_.selected ? colours::selectedBar : colours::bar));
  for (const int quarter : {90, 180, 270}) {
    const int x = static_cast<int>(std::lround(quarter * unitsPerDegree_));
    painter.fillRect(x, margin, 1, Background().height(), QColor::fromRgba(quarterLine));
  }
  QList<QRect> ends;
  QList<QRect> middles;
  for (const Run& run : picture_.runs) {
    const QRect box = BoxOf(run);
    if (event->rect().intersects(box)) (run.atEnd ? ends : middles).append(box);
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(picture_.selected ? colours::selectedRun : colours::text));
  painter.drawRects(middles);
  painter.setBrush(QColor::fromRgb(picture_.selected ? colours::selectedText : colours::text));
  painter.drawRects(ends);
}

}  // namespace nira
