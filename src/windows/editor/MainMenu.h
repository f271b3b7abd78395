// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QAction;
class QMenu;
class QMenuBar;

namespace nira {

/// The menu tree of the main window. Every entry has a name as object name, and what it does.
class MainMenu : public QObject {
  Q_OBJECT

 public:
  using Handler = std::function<void()>;

  /// `command` is given the handler of each entry that is chosen.
  MainMenu(QMenuBar* bar, std::function<void(const Handler&)> command);

  /// Begins a menu, to which the entries and separators that follow belong.
  QMenu* Begin(const char* caption);
  QAction* Add(const char* name, const char* caption, const Handler& handler);
  QAction* Add(const char* name, const char* caption, const QKeySequence& key,
               const Handler& handler);
  void AddSeparator();

  /// A menu inside the one that was begun: what `fill` adds goes into it.
  void AddMenu(const char* name, const char* caption, const Handler& fill);

  /// An entry that stands in the bar itself.
  void AddToBar(const char* name, const char* caption, const Handler& handler);

  /// Rebuilds the entries `F_Mnu_oldF` 1..5 ("&1 path") before the last entry of the first menu.
  void ShowRecent(const QStringList& paths);

 Q_SIGNALS:
  /// Path of the chosen recent file.
  void RecentChosen(const QString& path);

 private:
  QAction* Connect(QAction* action, const char* name, const Handler& handler);

  QMenuBar* bar_;
  std::function<void(const Handler&)> command_;
  QMenu* first_ = nullptr;
  QMenu* menu_ = nullptr;
  QList<QAction*> recent_;
};

}  // namespace nira
