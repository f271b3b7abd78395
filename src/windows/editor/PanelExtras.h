// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"

#include <QObject>

class QAction;
class QLabel;

namespace nira {

class KeyButton;
class PhaseEntry;

/// What stands in the panel of the phases as far as it is high enough: under the list the buttons
/// for a new phase and for deleting one, at the foot Undo and the keys.
class PanelExtras : public QObject {
  Q_OBJECT

 public:
  /// The entries of the menus for which the buttons stand.
  struct Entries {
    QAction* newPhase;
    QAction* deletePhase;
    QAction* undo;
  };

  PanelExtras(PhaseEntry* panel, const Entries& entries);

  void ShowTexts(const MessageTable& texts);
  /// Of which size and cam the row is that Undo brings back, "F01 C11".
  void ShowUndoRow(const QString& row);
  /// Pixels of the type.
  void Rescale(int pixels);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fit();
  int Least() const;

  PhaseEntry* panel_;
  Entries entries_;
  QWidget* buttons_;
  KeyButton* newPhase_;
  KeyButton* deletePhase_;
  KeyButton* undo_;
  QLabel* keys_;
  QString rowOf_;
  QString row_;
};

}  // namespace nira
