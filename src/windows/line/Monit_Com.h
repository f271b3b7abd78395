// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/SimulatedSign.h"
#include "line/Job.h"
#include "line/ProgressPicture.h"
#include "line/TransferReport.h"

#include <QDialog>
#include <QLabel>

namespace nira {

/// The communication monitor: carries out one transfer, shows how far it is, and closes itself when
/// the transfer has ended. There is no way to close it before.
class Monit_Com : public QDialog, public TransferReport {
  Q_OBJECT

 public:
  Monit_Com(Comm& comm, QWidget* parent);

  /// Shows the window with the job's item in `Label2` and runs the job once, as soon as the window
  /// is active. Returns how it ended.
  TransferEnd Run(const Job& job);

  void Title(const QString& text) override;
  void Label1(const QString& text) override;
  void Label2(const QString& text) override;
  void Progress(int percent) override;
  void Count(const TransferCount& count) override;

  void reject() override {}

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Form_Activate();
  void RunJob();
  void Write(QLabel* label, const QString& text);

  Comm& comm_;
  QLabel* label1_;
  QLabel* label2_;
  QLabel* items_;    // beside each other below it: the item of how many,
  QLabel* frames_;   // the frames so far,
  QLabel* seconds_;  // and the time that it will still take
  SimulatedSign* simulated_;
  ProgressPicture* picture1_;
  Job job_;
  bool begun_ = false;
  TransferEnd end_ = TransferEnd::Done;
};

}  // namespace nira
