// SPDX-License-Identifier: Apache-2.0
#include "editor/RunDrag.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace nira {

namespace {

constexpr int stillAClick = 3;  // pixels

}  // namespace

RunDrag::RunDrag(QWidget* diagram) : QObject(diagram), diagram_(diagram) {}

void RunDrag::Press(const Phase& phase, PhasePart part, const QPoint& place) {
  grip_ = Grip{phase, part, place};
  now_ = phase;
}

void RunDrag::Follow(const QPoint& place, double unitsPerDegree) {
  if (!grip_) return;
  const QPoint way = place - grip_->place;
  if (!dragging_) {
    if (way.manhattanLength() <= stillAClick) return;
    dragging_ = true;
    qApp->installEventFilter(this);
  }
  if (place.y() < 0 || place.y() >= diagram_->height()) return;
  const Phase next = Moved(grip_->phase, grip_->part, qRound(way.x() / unitsPerDegree));
  if (next == now_) return;
  now_ = next;
  Q_EMIT Dragged(grip_->phase, now_);
}

void RunDrag::Release() {
  const Phase before = grip_ ? grip_->phase : Phase();
  if (!End()) return;
  if (now_ == before) {
    Q_EMIT GivenUp();
  } else {
    Q_EMIT Dropped(before, now_);
  }
}

void RunDrag::PutBack() {
  if (End()) Q_EMIT GivenUp();
}

/// True when there was a drag and not only a press.
bool RunDrag::End() {
  grip_.reset();
  qApp->removeEventFilter(this);
  return std::exchange(dragging_, false);
}

bool RunDrag::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) PutBack();
      return true;
    case QEvent::ShortcutOverride:
      event->accept();
      return true;
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
      PutBack();
      return false;
    default:
      return false;
  }
}

}  // namespace nira
