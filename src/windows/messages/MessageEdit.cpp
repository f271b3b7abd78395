// SPDX-License-Identifier: Apache-2.0
#include "messages/MessageEdit.h"

#include "controls/Shades.h"
#include "messages/MessageTexts.h"

#include <QPainter>
#include <QStyleOptionFrame>

namespace nira {

QColor MarkColour(const QPalette& palette, bool selected) {
  constexpr double share = 0.55;
  return selected ? Mixed(palette.color(QPalette::HighlightedText),
                          palette.color(QPalette::Highlight), share)
                  : Mixed(palette.color(QPalette::Text), palette.color(QPalette::Base), share);
}

void MessageEdit::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  constexpr int besideText = 2;  // pixels that a line edit leaves free before its text
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QRect inside = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
  const int x = inside.left() + besideText +
                fontMetrics().horizontalAdvance(QString(MessageDisplay::Columns, u'M')) - 1;
  QPainter painter(this);
  painter.setPen(MarkColour(palette(), false));
  painter.drawLine(x, inside.top(), x, inside.bottom());
}

}  // namespace nira
