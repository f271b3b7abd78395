// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "files/CamFile.h"

#include <QFrame>
#include <QStringList>

class QAction;
class QVBoxLayout;

namespace nira {

/// What to begin with, over the bars while there is neither a file nor a phase: to open a file, to
/// begin a program, to receive one, the recent files. It goes with the first phase, at a click
/// beside it and with Escape. Its contents are built when it is shown.
class StartPanel : public QFrame {
  Q_OBJECT

 public:
  /// The menu entries that it offers, "Sel Programmer" after a refused file alone.
  struct Entries {
    QAction* open;
    QAction* begin;
    QAction* receive;
    QAction* model;
  };

  StartPanel(const Instance& instance, const Entries& entries, const QWidget* bars,
             QWidget* parent);

  void ShowRecent(const QStringList& paths);

  /// After another language was chosen.
  void ShowTexts();

  /// A file was refused for its numbers of cams and sizes: the panel comes back and says so.
  void ShowRefused(const QString& path, const CamFileCounts& counts);

  /// `empty`: there is neither a file nor a phase.
  void Follow(bool empty);

 Q_SIGNALS:
  void RecentChosen(const QString& path);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Dismiss();
  void Open();
  void Build();
  void BuildRefused(QVBoxLayout& layout);
  void BuildRecent(QVBoxLayout& layout);
  void AddButton(QVBoxLayout& layout, TextNumber caption, QAction* entry);
  void Place();

  const Instance& instance_;
  Entries entries_;
  const QWidget* bars_;
  QWidget* body_ = nullptr;
  QStringList recent_;
  QString refused_;       // path; empty when none was
  CamFileCounts counts_;  // of that file
  bool misfit_ = false;   // the refused file still does not fit the model
  bool wanted_ = true;    // until something else took its place
};

}  // namespace nira
