// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dialogs/clsCommonDialog.h"
#include "line/Comm.h"
#include "line/FlashReport.h"
#include "line/ReadyLamp.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>

namespace nira {

/// The firmware update: runs from the moment the window is active and closes itself at its end.
/// Nobody closes it before, and no key or button reaches the tool while lines are sent.
class UpdFlsh : public QDialog, private FlashReport {
  Q_OBJECT

 public:
  /// `path` is the firmware file.
  UpdFlsh(Comm& comm, const QString& path, QWidget* parent);

  /// How the update ended; of use once the window has closed itself.
  TransferEnd End() const { return end_; }

  void reject() override {}

 protected:
  bool event(QEvent* event) override;

 private:
  QLabel* AddLine(QLayout* layout, const char* name);
  QLayout* BuildReady();
  void BuildLayout();
  void Start();

  void Show(FlashLine line, const QString& text) override;
  void Ready(bool ready) override;
  void Refused(int times) override;
  void Progress(int percent) override;

  Comm& comm_;
  QString path_;
  TransferEnd end_ = TransferEnd::Busy;
  bool started_ = false;
  QLabel* file_ = nullptr;
  QLabel* testing_ = nullptr;
  QLabel* program_ = nullptr;
  QLabel* transmit_ = nullptr;
  QLabel* message_ = nullptr;
  QLabel* readyText_ = nullptr;
  ReadyLamp* lamp_ = nullptr;
  QProgressBar* progress_ = nullptr;
};

/// Menu "Update FLASH": asks for the firmware file and runs the update. `Cancelled` when no file
/// was chosen.
TransferEnd Upd_Flash_Click(Comm& comm, clsCommonDialog& dialog, QWidget* window);

}  // namespace nira
