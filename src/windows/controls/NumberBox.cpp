// SPDX-License-Identifier: Apache-2.0
#include "controls/NumberBox.h"

#include <QKeyEvent>

namespace nira {

NumberBox::NumberBox(int length, KeyFilter filter, QWidget* parent)
    : DegreeBox(length, std::move(filter), parent) {
  setAlignment(Qt::AlignRight);
}

bool NumberBox::IsLeft(Qt::FocusReason reason) {
  return reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason &&
         reason != Qt::ActiveWindowFocusReason;
}

bool NumberBox::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) return focusNextPrevChild(key == Qt::Key_Tab);
  }
  return DegreeBox::event(event);
}

void NumberBox::focusInEvent(QFocusEvent* event) {
  DegreeBox::focusInEvent(event);
  if (IsLeft(event->reason())) SelectAllText();
}

}  // namespace nira
