// SPDX-License-Identifier: Apache-2.0
#include "editor/SwitchingMarks.h"

#include <QPaintEvent>
#include <QPainter>

namespace nira {

namespace {

constexpr QRgb switchingColour = 0xff8e0f8e;  // purple: as far from the runs as from the red line
constexpr int switchingHeight = 2;

}  // namespace

SwitchingMarks::SwitchingMarks(QWidget* diagram) : DiagramLayer("SwitchingMarks", diagram) {}

void SwitchingMarks::Show(int row, const CamBar* bar, const Switching& switching) {
  Row& shown = rows_.at(static_cast<std::size_t>(row));
  if (shown.bar == bar && shown.switching == switching) return;
  if (shown.switching.ratio != switching.ratio) update(Margin());
  update(Strip(shown));
  shown = {bar, switching, {}, {}};
  Follow(row);
}

void SwitchingMarks::Follow(int row) {
  Row& shown = rows_.at(static_cast<std::size_t>(row));
  if (!shown.switching.moved || shown.bar->Shown().runs == shown.drawn) return;
  shown.drawn = shown.bar->Shown().runs;
  shown.runs = shown.switching.Applied(shown.drawn);
  update(Strip(shown));
}

/// The lowest line of pixels of the bar and the gap below it: neither has anything of the runs.
QRect SwitchingMarks::Strip(const Row& row) const {
  if (row.bar == nullptr) return {};
  const QRect bar = row.bar->geometry();
  return {bar.left(), bar.bottom(), bar.width(), switchingHeight};
}

/// Right of the bars.
QRect SwitchingMarks::Margin() const {
  const QRect& bars = Place().bars;
  return {QPoint(bars.right() + 2, bars.top()), QPoint(width() - 1, bars.bottom())};
}

void SwitchingMarks::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  for (int row = 0; row < Place().numCams; ++row) {
    const Row& shown = rows_[static_cast<std::size_t>(row)];
    const QRect strip = Strip(shown);
    if (!shown.runs.empty() && event->region().intersects(strip)) {
      PaintLine(painter, shown, event->region() & strip);
    }
  }
  if (event->region().intersects(Margin())) PaintRatios(painter);
}

void SwitchingMarks::PaintLine(QPainter& painter, const Row& row, const QRegion& where) const {
  const QRect strip = Strip(row);
  for (const Run& run : row.runs) {
    const QRect box = row.bar->BoxOf(run);
    const QRect line(strip.left() + box.left(), strip.top(), box.width(), strip.height());
    if (where.intersects(line)) painter.fillRect(line, QColor::fromRgb(switchingColour));
  }
}

void SwitchingMarks::PaintRatios(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::WindowText));
  painter.setFont(ScaleFont());
  int first = 0;
  for (int row = 1; row <= Place().numCams; ++row) {
    if (row < Place().numCams && Shown(row).ratio == Shown(first).ratio) continue;
    if (Shown(first).ratio) PaintRatio(painter, first, row - 1);
    first = row;
  }
}

/// A bracket along the rows with the ratio in its middle, turned to run along it.
void SwitchingMarks::PaintRatio(QPainter& painter, int first, int last) const {
  const QString text = QStringLiteral("1/") + QString::number(*Shown(first).ratio);
  const QRect margin = Margin();
  const QRect place(QPoint(margin.left(), Place().Top(first) + 1),
                    QPoint(margin.right(), Place().Top(last + 1) - 3));
  const int x = place.center().x();
  const int half = QFontMetrics(ScaleFont()).horizontalAdvance(text) / 2 + 4;
  if (2 * half < place.height()) {
    painter.drawLine(place.left(), place.top(), x, place.top());
    painter.drawLine(x, place.top(), x, place.center().y() - half);
    painter.drawLine(x, place.center().y() + half, x, place.bottom());
    painter.drawLine(place.left(), place.bottom(), x, place.bottom());
  }
  painter.save();
  painter.translate(place.center());
  painter.rotate(90);
  painter.drawText(QRect(-half, -margin.width() / 2 - 2, 2 * half, margin.width() + 4),
                   Qt::AlignCenter, text);
  painter.restore();
}

}  // namespace nira
