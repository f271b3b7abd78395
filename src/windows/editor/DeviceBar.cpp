// SPDX-License-Identifier: Apache-2.0
#include "editor/DeviceBar.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace nira {

namespace {

constexpr int spacing = 8;

}  // namespace

DeviceBar::DeviceBar(QWidget* block, const QList<QToolButton*>& buttons)
    : block_(block), buttons_(buttons) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, spacing, 0);
  layout->setSpacing(spacing);
  layout->addStretch(1);
  layout->addWidget(block);
  for (QToolButton* button : buttons) layout->addWidget(button);
}

/// What all of it takes with such a width of the block.
int DeviceBar::Width(int block, bool words) const {
  constexpr int padding = 14;  // of a button around its picture, on the generous side
  int width = block + spacing;
  for (const QToolButton* button : buttons_) {
    width += spacing + button->iconSize().width() + padding;
    if (words) width += spacing + button->fontMetrics().horizontalAdvance(button->text());
  }
  return width;
}

QSize DeviceBar::minimumSizeHint() const {
  return {Width(block_->minimumSizeHint().width(), false), QWidget::minimumSizeHint().height()};
}

void DeviceBar::resizeEvent(QResizeEvent*) {
  const bool words = width() >= Width(block_->sizeHint().width(), true);
  for (QToolButton* button : buttons_) {
    button->setToolButtonStyle(words ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
  }
}

}  // namespace nira
