// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamLabel.h"
#include "controls/ElidedLabel.h"
#include "controls/Instance.h"
#include "editor/StateChip.h"

#include <QObject>

#include <optional>

class QStatusBar;

namespace nira {

/// What no other control says: the model, what is read in the diagram, what the last command did,
/// and whether the program differs from what is in the file and from what the programmer has.
class StatusLine : public QObject {
  Q_OBJECT

 public:
  StatusLine(Instance& instance, QStatusBar* bar);

  /// Writes everything anew but the note and what is read.
  void Show();

  /// The program was taken as saved: shows whether a file holds it or none.
  void ShowFile();

  /// The programmer holds the program as it is now: it was sent, or received.
  void TakeExchange(bool received);

  /// What a command did; it stands until the next one begins.
  void ShowNote(const QString& text);

  /// What is read in the diagram: a degree 0..359, -1 for none, the degrees from one line to the
  /// other, -1 for none, and the cams that are ON there.
  void ShowLine(int degree, int difference, const QString& on);
  static QString Reading(const Comm& comm, int degree, int difference, const QString& on);

 Q_SIGNALS:
  /// The operator wants the program in its file.
  void SaveWanted();

 private:
  /// The last whole exchange of this run.
  struct Exchange {
    std::uint64_t revision = 0;  // of the program then
    bool received = false;       // not sent
    QString time;
  };

  QLabel* AddModel();
  CamLabel* AddReading();
  ElidedLabel* AddNote();
  StateChip* AddChip(const char* name);
  void ShowChips();

  Instance& instance_;
  QStatusBar* bar_;
  QLabel* model_;
  CamLabel* degree_;
  ElidedLabel* note_;
  StateChip* changed_;
  StateChip* sent_;
  std::optional<Exchange> exchange_;
  bool onFile_ = false;  // where the program does not differ
};

}  // namespace nira
