// SPDX-License-Identifier: Apache-2.0
#include "line/ProgressPicture.h"

#include "controls/Shades.h"

#include <QPainter>

#include <algorithm>

namespace nira {

ProgressPicture::ProgressPicture(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ProgressPicture::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.averageCharWidth() * 72, metrics.height() + 16};
}

void ProgressPicture::Show(int percent) {
  percent_ = std::clamp(percent, 0, 100);
  setAccessibleDescription(QString::number(percent_) + QStringLiteral(" %"));
  repaint();
}

/// The number stands in the middle, in the colour that goes with what is behind each part of it.
void ProgressPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect frame = rect().adjusted(0, 0, -1, -1);
  const QRect inside = frame.adjusted(1, 1, 0, 0);
  QRect done = inside;
  done.setWidth(inside.width() * percent_ / 100);
  const QString text = QString::number(percent_) + QStringLiteral(" %");
  const auto part = [&](const QRect& place, QPalette::ColorRole ground, QPalette::ColorRole ink) {
    painter.setClipRect(place);
    painter.fillRect(place, palette().color(ground));
    painter.setPen(palette().color(ink));
    painter.drawText(inside, Qt::AlignCenter, text);
  };
  part(inside, QPalette::Base, QPalette::Text);
  if (!done.isEmpty()) part(done, QPalette::Highlight, QPalette::HighlightedText);
  painter.setClipping(false);
  painter.setPen(Outline(palette()));
  painter.drawRect(frame);
}

}  // namespace nira
