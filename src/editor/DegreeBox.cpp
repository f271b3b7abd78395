#include "editor/DegreeBox.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <memory>

namespace nira {

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
  constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const QString text = event->text();
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Key(Enter);
  } else if (event == QKeySequence::Paste) {
    Type(QApplication::clipboard()->text());
  } else if (!text.isEmpty() && text.at(0).isPrint() && !(event->modifiers() & commands)) {
    Type(text);
  } else {
    QLineEdit::keyPressEvent(event);
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
  if (auto* paste = menu->findChild<QAction*>(QStringLiteral("edit-paste"))) {
    paste->disconnect();
    connect(paste, &QAction::triggered, this, [this] { Type(QApplication::clipboard()->text()); });
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
  QLineEdit::focusOutEvent(event);
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
