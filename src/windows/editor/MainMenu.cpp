// SPDX-License-Identifier: Apache-2.0
#include "editor/MainMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace nira {

MainMenu::MainMenu(QMenuBar* bar, std::function<void(const Handler&)> command)
    : QObject(bar), bar_(bar), command_(std::move(command)) {}

QMenu* MainMenu::Begin(const char* caption) {
  menu_ = bar_->addMenu(QString::fromUtf8(caption));
  if (first_ == nullptr) first_ = menu_;
  return menu_;
}

QAction* MainMenu::Add(const char* name, const char* caption, const Handler& handler) {
  return Connect(menu_->addAction(QString::fromUtf8(caption)), name, handler);
}

QAction* MainMenu::Add(const char* name, const char* caption, const QKeySequence& key,
                       const Handler& handler) {
  QAction* action = Add(name, caption, handler);
  action->setShortcut(key);
  return action;
}

void MainMenu::AddSeparator() {
  menu_->addSeparator();
}

void MainMenu::AddMenu(const char* name, const char* caption, const Handler& fill) {
  QMenu* outer = std::exchange(menu_, menu_->addMenu(QString::fromUtf8(caption)));
  menu_->menuAction()->setObjectName(QString::fromLatin1(name));
  fill();
  menu_ = outer;
}

void MainMenu::AddToBar(const char* name, const char* caption, const Handler& handler) {
  Connect(bar_->addAction(QString::fromUtf8(caption)), name, handler);
}

QAction* MainMenu::Connect(QAction* action, const char* name, const Handler& handler) {
  action->setObjectName(QString::fromLatin1(name));
  action->setAutoRepeat(false);         // a key held down for long sends once
  action->setIconVisibleInMenu(false);  // a picture is for the toolbar
  connect(action, &QAction::triggered, this, [this, handler] { command_(handler); });
  return action;
}

void MainMenu::ShowRecent(const QStringList& paths) {
  qDeleteAll(recent_);
  recent_.clear();
  if (paths.isEmpty()) return;
  QAction* last = first_->actions().constLast();
  int number = 0;
  for (const QString& path : paths) {
    // "&1 path": a "&" of the path itself is no mnemonic.
    QString shown = path;
    shown.replace(u'&', QStringLiteral("&&"));
    auto* action = new QAction(u'&' + QString::number(++number) + u' ' + shown, first_);
    action->setObjectName(QStringLiteral("F_Mnu_oldF_") + QString::number(number));
    action->setData(path);
    first_->insertAction(last, action);
    connect(action, &QAction::triggered, this, [this, path] { Q_EMIT RecentChosen(path); });
    recent_.append(action);
  }
  recent_.append(first_->insertSeparator(last));
}

}  // namespace nira
