// SPDX-License-Identifier: Apache-2.0
#include "controls/InputHold.h"

#include <QCoreApplication>
#include <QEvent>

namespace nira {

namespace {

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

InputHold::InputHold() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) windows_.append(window);
  }
  qApp->installEventFilter(this);
}

InputHold::~InputHold() {
  QCoreApplication::processEvents();  // what was done meanwhile was not meant for what comes now
}

bool InputHold::eventFilter(QObject* watched, QEvent* event) {
  if (!IsInput(event->type()) || !Holds(watched)) return false;
  event->ignore();
  return true;
}

/// An action is held with its menu, a menu with the window that opened it.
bool InputHold::Holds(const QObject* watched) const {
  while (watched != nullptr && !watched->isWidgetType()) watched = watched->parent();
  if (watched == nullptr) return false;
  const QWidget* window = static_cast<const QWidget*>(watched)->window();
  while (window->windowType() == Qt::Popup && window->parentWidget() != nullptr) {
    window = window->parentWidget()->window();
  }
  return windows_.contains(window);
}

}  // namespace nira
