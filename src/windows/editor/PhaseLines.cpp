// SPDX-License-Identifier: Apache-2.0
#include "editor/PhaseLines.h"

#include "model/PhaseList.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace nira {

PhaseLines::PhaseLines(QWidget* parent) : QListWidget(parent) {
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void PhaseLines::KeepPressed() {
  pressed_ = {};
  for (int row = 0; row < count(); ++row) pressed_.lines.append(item(row)->text());
  if (pressed_.lines.isEmpty()) return;
  const QRect first = visualItemRect(item(0));
  pressed_.top = first.top();
  pressed_.height = std::max(1, first.height());
  QMetaObject::invokeMethod(
      this, [this] { pressed_ = {}; }, Qt::QueuedConnection);
}

/// The first arrow key in the refilled list selects its first line instead of stepping over it.
void PhaseLines::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  const bool plain = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  const bool digit = plain && text.size() == 1 && text.at(0) >= u'0' && text.at(0) <= u'9';
  switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (!selectedItems().isEmpty() || count() == 0) break;
      return setCurrentRow(0);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Q_EMIT EnterPressed();
    case Qt::Key_Escape:
      return event->ignore();  // the window's
    default:
      if (digit) return Q_EMIT DigitTyped(text);
  }
  QListWidget::keyPressEvent(event);
}

/// A press that the list does not see goes with all that follows it.
void PhaseLines::mousePressEvent(QMouseEvent* event) {
  redirected_ = TakePress(event->pos());
  if (!redirected_) QListWidget::mousePressEvent(event);
}

void PhaseLines::mouseMoveEvent(QMouseEvent* event) {
  if (!redirected_) QListWidget::mouseMoveEvent(event);
}

void PhaseLines::mouseDoubleClickEvent(QMouseEvent* event) {
  if (redirected_) return Q_EMIT MeantTwice();
  QListWidget::mouseDoubleClickEvent(event);
}

/// By the menu key it opens at the selected line.
void PhaseLines::contextMenuEvent(QContextMenuEvent* event) {
  const QPoint line = visualItemRect(currentItem()).bottomLeft();
  const bool key = event->reason() == QContextMenuEvent::Keyboard;
  Q_EMIT MenuWanted(key ? viewport()->mapToGlobal(line) : event->globalPos());
}

/// The phase that was under the pointer is the one that is meant, wherever it stands now, and none
/// when it is gone. False where the list itself comes to the same.
bool PhaseLines::TakePress(const QPoint& place) {
  const Pressed before = std::exchange(pressed_, {});
  if (before.lines.isEmpty() || place.y() < before.top) return false;
  const QString meant = before.lines.value((place.y() - before.top) / before.height);
  if (meant.isEmpty()) return false;
  const auto same = [&meant](const QString& line) {
    return OnField(line) == OnField(meant) && OffField(line) == OffField(meant);
  };
  const QListWidgetItem* under = itemAt(place);
  if (under != nullptr && same(under->text())) return false;
  for (int row = 0; row < count(); ++row) {
    if (!same(item(row)->text())) continue;
    setCurrentRow(row);
    Q_EMIT Meant();  // also when it is the one that was just written
  }
  return true;
}

}  // namespace nira
