// SPDX-License-Identifier: Apache-2.0
#include "messages/DisplayRow.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <QVBoxLayout>

namespace nira {

namespace {

// The display's own colours, whatever the theme.
constexpr QRgb casing = 0xff12181c;
constexpr QRgb unlit = 0xff1f2f33;
constexpr QRgb lit = 0xffa8f0dc;

constexpr int gap = 2;      // pixels between two cells
constexpr int border = 12;  // between the cells and the edge of the casing

}  // namespace

DisplayRow::DisplayRow(const char* name, int pixels, QWidget* parent) : QLabel(parent) {
  setObjectName(QString::fromLatin1(name));
  setTextFormat(Qt::PlainText);
  QFont cells = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  cells.setPixelSize(pixels);
  setFont(cells);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DisplayRow::Cell() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(u'M') + 6, metrics.height() + 6};
}

QSize DisplayRow::sizeHint() const {
  const QSize cell = Cell();
  return {MessageDisplay::Columns * (cell.width() + gap) - gap, cell.height()};
}

void DisplayRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor::fromRgb(casing));
  painter.setPen(QColor::fromRgb(lit));
  const QSize cell = Cell();
  for (int column = 0; column < MessageDisplay::Columns; ++column) {
    const QRect place(QPoint(column * (cell.width() + gap), 0), cell);
    painter.fillRect(place, QColor::fromRgb(unlit));
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, text().mid(column, 1));
  }
}

DisplayFrame::DisplayFrame(DisplayRow* upper, DisplayRow* lower) : upper_(upper), lower_(lower) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(border, border, border, border);
  layout->setSpacing(2 * gap);
  layout->addWidget(upper);
  layout->addWidget(lower);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void DisplayFrame::Show(const MessageDisplay& rows) {
  upper_->setText(rows.upper);
  lower_->setText(rows.lower);
}

void DisplayFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(casing));
  painter.drawRoundedRect(rect(), 4, 4);
}

}  // namespace nira
