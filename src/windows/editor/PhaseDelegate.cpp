// SPDX-License-Identifier: Apache-2.0
#include "editor/PhaseDelegate.h"

#include "controls/Shades.h"

#include <QPainter>

namespace nira {

void PhaseDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  constexpr int margin = 6;         // pixels to the edge of the list
  constexpr double quieter = 0.65;  // than the line itself
  const QPalette& palette = option.palette;
  const bool active = option.state.testFlag(QStyle::State_Active);
  const auto group = active ? QPalette::Active : QPalette::Inactive;
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  painter->setPen(selected ? palette.color(group, QPalette::HighlightedText)
                           : Mixed(palette.color(group, QPalette::Text),
                                   palette.color(group, QPalette::Base), quieter));
  const QString time = index.data(Time).toString();
  painter->setFont(time.isEmpty() ? option.font : small_);
  QRect place = option.rect.adjusted(0, 0, -margin, 0);
  constexpr auto right = Qt::AlignRight | Qt::AlignVCenter;
  painter->drawText(place, right, time);
  if (!time.isEmpty())
    place.adjust(0, 0, -painter->fontMetrics().horizontalAdvance(time) - margin, 0);
  painter->drawText(place, right, index.data(Length).toString());
}

}  // namespace nira
