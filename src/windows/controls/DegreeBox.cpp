// SPDX-License-Identifier: Apache-2.0
#include "controls/DegreeBox.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <memory>

namespace nira {

namespace {

/// True for a key that stands for a character. Ctrl and Alt together are AltGr on some systems.
bool IsTyped(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::ShiftModifier;
  const QString text = event.text();
  return !text.isEmpty() && text.at(0).category() != QChar::Other_Control &&
         modifiers != Qt::ControlModifier && modifiers != Qt::MetaModifier;
}

}  // namespace

DegreeBox::DegreeBox(int length, KeyFilter filter, QWidget* parent)
    : QLineEdit(parent), filter_(std::move(filter)) {
  setMaxLength(length);
  setAlignment(Qt::AlignCenter);
  setAcceptDrops(false);
  setDragEnabled(false);
}

bool DegreeBox::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
      Key(Tab);
      return true;
    }
  }
  return QLineEdit::event(event);
}

void DegreeBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Key(Enter);
  } else if (event == QKeySequence::Paste) {
    Type(QApplication::clipboard()->text());
  } else if (IsTyped(*event)) {
    Type(event->text());
  } else {
    // Editing keys go on without their text: no character comes past the filter.
    QKeyEvent editing(event->type(), event->key(), event->modifiers(), QString(),
                      event->isAutoRepeat());
    QLineEdit::keyPressEvent(&editing);
    event->setAccepted(editing.isAccepted());
  }
}

void DegreeBox::inputMethodEvent(QInputMethodEvent* event) {
  const QString text = event->commitString();
  event->setCommitString(QString());
  QLineEdit::inputMethodEvent(event);
  Type(text);
}

void DegreeBox::mousePressEvent(QMouseEvent* event) {
  if (focusedByMouse_) {
    focusedByMouse_ = false;
    SelectAllText();
  } else {
    QLineEdit::mousePressEvent(event);
  }
}

void DegreeBox::mouseReleaseEvent(QMouseEvent* event) {
  QClipboard* clipboard = QApplication::clipboard();
  if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
    Type(clipboard->text(QClipboard::Selection));
  } else {
    QLineEdit::mouseReleaseEvent(event);
  }
}

void DegreeBox::contextMenuEvent(QContextMenuEvent* event) {
  const std::unique_ptr<QMenu> menu(createStandardContextMenu());
  for (QAction* action : menu->actions()) {
    if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
    disconnect(action, &QAction::triggered, nullptr, nullptr);
    connect(action, &QAction::triggered, this, [this] { Type(QApplication::clipboard()->text()); });
  }
  menu->exec(event->globalPos());
}

void DegreeBox::focusInEvent(QFocusEvent* event) {
  focusedByMouse_ = event->reason() == Qt::MouseFocusReason;
  QLineEdit::focusInEvent(event);
  Q_EMIT FocusGained(event->reason());
}

void DegreeBox::focusOutEvent(QFocusEvent* event) {
  focusedByMouse_ = false;
  const int start = selectionStart();
  const int length = selectionLength();
  QLineEdit::focusOutEvent(event);
  // A look into a menu leaves the selection as it is; the base class drops it.
  if (event->reason() == Qt::MenuBarFocusReason && start >= 0) setSelection(start, length);
  Q_EMIT FocusLost(event->reason());
}

void DegreeBox::Type(const QString& text) {
  for (const QChar c : text) {
    if (c.category() == QChar::Other_Control) return;  // the end of a pasted line
    if (!c.isLowSurrogate()) Key(c.unicode());
  }
}

void DegreeBox::Key(char16_t code) {
  if (filter_(code)) insert(QChar(code));
}

}  // namespace nira
