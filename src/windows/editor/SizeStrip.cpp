// SPDX-License-Identifier: Apache-2.0
#include "editor/SizeStrip.h"

#include "controls/CamBar.h"
#include "controls/PlainTip.h"
#include "controls/Shades.h"
#include "files/TextNumbers.h"
#include "ground/Text.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace nira {

namespace {

constexpr int triangle = 6;  // height of the mark below a cell, half of its width
constexpr int gap = 12;      // between the caption and the first cell
constexpr int padding = 3;   // above and below a number together
constexpr int fewSizes = 22;
constexpr int numbersAbove = 9;  // more height for cells that have their numbers above
constexpr QRgb outputColour = 0xffb3261e;
constexpr QRgb emptyOnYellow = 0xff555555;

}  // namespace

SizeStrip::SizeStrip(const MessageTable& texts, const QWidget* bars, QWidget* parent)
    : QWidget(parent), texts_(texts), bars_(bars) {
  setObjectName(QStringLiteral("SizeStrip"));
  // A click leaves the focus where it is, as one on the stepper does.
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void SizeStrip::ShowSizes(const CamProgram& program) {
  use_.Follow(program);
  if (std::exchange(numSizes_, program.NumSizes()) != program.NumSizes()) updateGeometry();
  current_ = program.CurrentSize();
  output_ = program.Functions().OutputSize;
  setAccessibleName(Caption() + QStringLiteral("; ") + Tip(current_));
  update();
}

void SizeStrip::Rescale(int pixels) {
  QFont type = font();
  type.setPixelSize(pixels);
  setFont(type);
  numberWidth_ = fontMetrics().horizontalAdvance(QStringLiteral("00"));
  updateGeometry();
}

QSize SizeStrip::sizeHint() const {
  const int below = numSizes_ > fewSizes ? numbersAbove : 0;
  return {0, fontMetrics().height() + padding + triangle + 2 + below};
}

QString SizeStrip::Caption() const {
  return texts_.Text(TextNumber::SizesInUse) + QString::number(use_.Used()) +
         QStringLiteral(" / ") + QString::number(numSizes_);
}

QString SizeStrip::Tip(int size) const {
  const SizeUse::Count& count = use_.Of(size);
  const QString text =
      texts_.Text(count.phases > 0 ? TextNumber::SizeTip : TextNumber::SizeTipEmpty);
  const QString tip = Filled(
      text, {QString::number(size), QString::number(count.cams), QString::number(count.phases)});
  return size == output_ ? tip + texts_.Text(TextNumber::SizeTipOutput) : tip;
}

int SizeStrip::NumbersWidth() const {
  return numSizes_ * (numberWidth_ + 3);
}

int SizeStrip::Left() const {
  return NumbersWidth() <= bars_->width() ? bars_->x()
                                          : fontMetrics().horizontalAdvance(Caption()) + gap;
}

int SizeStrip::Room() const {
  return bars_->x() + bars_->width() - Left();
}

bool SizeStrip::Numbered() const {
  return NumbersWidth() <= Room();
}

QRect SizeStrip::Cell(int size) const {
  const auto edge = [this](int cells) { return Left() + Room() * cells / numSizes_; };
  const int top = Numbered() ? 0 : fontMetrics().height() - 1;
  const int begin = edge(size - 1);
  return {begin, top, std::max(1, edge(size) - begin - 1), height() - triangle - 1 - top};
}

/// The size whose cell is at a place, above or below it too; 0 beside them.
int SizeStrip::SizeAt(const QPoint& place) const {
  for (int size = 1; size <= numSizes_; ++size) {
    const QRect cell = Cell(size);
    if (place.x() >= cell.left() && place.x() <= cell.right() + 1) return size;
  }
  return 0;
}

void SizeStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor text = palette().color(QPalette::WindowText);
  painter.setPen(text);
  const QRect caption(0, 0, Left() - gap / 2, height() - triangle);
  painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(Caption(), Qt::ElideRight, caption.width()));
  for (int size = 1; size <= numSizes_; ++size) PaintCell(painter, size);
  if (!Numbered()) PaintNumbersAbove(painter);
  if (output_ >= 1 && output_ <= numSizes_) PaintOutput(painter);
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(QRect(Cell(1).topLeft(), Cell(numSizes_).bottomRight()).adjusted(0, 1, 0, 0));
  }
}

void SizeStrip::PaintCell(QPainter& painter, int size) const {
  const QPalette& own = palette();
  const bool used = use_.Of(size).phases > 0;
  const bool current = size == current_;
  const QColor window = own.color(QPalette::Window);
  const QColor text = own.color(QPalette::WindowText);
  QColor ground = used ? own.color(QPalette::Base) : Mixed(text, window, Numbered() ? 0.08 : 0.15);
  QColor number = used ? own.color(QPalette::Text) : SecondaryText(own);
  if (current) {
    ground = QColor::fromRgb(colours::selectedBar);
    number = QColor::fromRgb(used ? colours::text : emptyOnYellow);
  }
  const QRect cell = Cell(size);
  painter.fillRect(cell, ground);
  if (Numbered() || current) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(current ? text : Outline(own));
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
  }
  if (Numbered()) {
    painter.setPen(number);
    painter.drawText(cell, Qt::AlignCenter, ZeroFilled(size, 2));
  } else if (used) {  // where there is no room for its number
    QRect mark(0, 0, 2, std::min(7, cell.height()));
    mark.moveCenter(cell.center());
    painter.fillRect(mark, number);
  }
}

/// The first size and every tenth one.
void SizeStrip::PaintNumbersAbove(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::WindowText));
  for (int size = 1; size <= numSizes_; size += size == 1 ? 9 : 10) {
    const int centre = Cell(size).center().x();
    painter.drawText(QRect(centre - 20, 0, 40, Cell(size).top()),
                     Qt::AlignHCenter | Qt::AlignBottom, QString::number(size));
  }
}

void SizeStrip::PaintOutput(QPainter& painter) const {
  const QRect cell = Cell(output_);
  const QPointF tip(cell.center().x() + 1, cell.bottom() + 1);
  QPainterPath path(tip);
  path.lineTo(tip + QPointF(triangle, triangle));
  path.lineTo(tip + QPointF(-triangle, triangle));
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor dark = QColor::fromRgb(outputColour);
  const bool reads = Contrast(dark, palette().color(QPalette::Window)) >= 3;
  painter.fillPath(path, reads ? dark : QColor::fromRgb(colours::lit));
  painter.setRenderHint(QPainter::Antialiasing, false);
}

bool SizeStrip::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int size = SizeAt(help->pos());
  if (size == 0) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help->globalPos(), PlainTip(Tip(size)), this, Cell(size));
  }
  return true;
}

void SizeStrip::mousePressEvent(QMouseEvent* event) {
  const int size = event->button() == Qt::LeftButton ? SizeAt(event->pos()) : 0;
  if (size > 0) Q_EMIT Chosen(size);
}

void SizeStrip::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return Q_EMIT Chosen(std::max(1, current_ - 1));
    case Qt::Key_Right:
      return Q_EMIT Chosen(std::min(numSizes_, current_ + 1));
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace nira
