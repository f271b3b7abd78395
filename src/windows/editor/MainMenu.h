// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAction>
#include <QList>
#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <QString>
#include <QStringList>

namespace nira {

/// The menu tree of the main window. Every item has its name as object name.
class MainMenu : public QObject {
  Q_OBJECT

 public:
  explicit MainMenu(QMenuBar* bar);

  /// An item by its name.
  QAction* Item(const QString& name) const;

  /// Rebuilds the entries `F_Mnu_oldF` 1..5: "&1 path".
  void ShowRecent(const QStringList& paths);

 Q_SIGNALS:
  /// Name of the chosen item.
  void Chosen(const QString& item);
  /// Path of the chosen recent file.
  void RecentChosen(const QString& path);

 private:
  QMenuBar* bar_;
  QMenu* file_ = nullptr;
  QList<QAction*> recent_;
};

}  // namespace nira
