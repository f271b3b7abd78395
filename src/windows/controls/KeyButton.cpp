// SPDX-License-Identifier: Apache-2.0
#include "controls/KeyButton.h"

#include "controls/PlainTip.h"
#include "controls/Shades.h"

#include <QAction>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace nira {

namespace {

constexpr int padding = 5;  // pixels beside the texts
constexpr int above = 7;    // above and below them
constexpr int gap = 3;      // between them

}  // namespace

KeyButton::KeyButton(const char* name, QAction* entry, QWidget* parent) : QPushButton(parent) {
  setObjectName(QString::fromLatin1(name));
  setFocusPolicy(Qt::NoFocus);
  setEnabled(entry->isEnabled());
  connect(this, &QPushButton::clicked, entry, &QAction::trigger);
  connect(entry, &QAction::enabledChanged, this, &QPushButton::setEnabled);
}

void KeyButton::ShowTexts(const QString& caption, const QString& remark) {
  setText(caption);
  setAccessibleName(QString(caption + u' ' + remark).trimmed());
  setToolTip(PlainTip(accessibleName()));
  remark_ = remark;
  update();
}

QSize KeyButton::sizeHint() const {
  const int remark = fontMetrics().horizontalAdvance(remark_);
  return {minimumSizeHint().width() + gap + remark, minimumSizeHint().height()};
}

QSize KeyButton::minimumSizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.horizontalAdvance(text()) + 2 * padding, metrics.height() + 2 * above};
}

void KeyButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  const QColor colour = palette().color(group, QPalette::ButtonText);
  const QRect inside = rect().adjusted(padding, 0, -padding, 0);
  painter.setPen(colour);
  painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, text());
  if (!isEnabled() || sizeHint().width() > width()) return;
  constexpr double quieter = 0.8;  // the ground of a button is brighter than its palette says
  painter.setPen(Mixed(colour, palette().color(QPalette::Button), quieter));
  painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter, remark_);
}

}  // namespace nira
