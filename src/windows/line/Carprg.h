// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/SimulatedSign.h"
#include "line/Comm.h"

#include <QButtonGroup>
#include <QDialog>
#include <QLabel>
#include <QRadioButton>

#include <array>

namespace nira {

/// The choice of the programmer's model. Closing it, in whatever way, takes the chosen model and
/// empties all sizes: there is no cancel.
class Carprg : public QDialog {
  Q_OBJECT

 public:
  Carprg(Comm& comm, QWidget* parent);

  /// Takes the model and closes; Escape does not.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildLayout();
  void Form_Load();
  void FillO_F();
  void O_QX_Click(int index);
  void O_F_Click(int index);
  void AutSel_Click();
  void Timer1_Timer();
  void Form_Unload();
  int ChosenSizes() const;
  void SetModel(int cams, int sizes);

  Comm& comm_;
  CamProgram& program_;
  std::array<QRadioButton*, 2> O_QX{};
  std::array<QRadioButton*, 2> O_F{};
  QLabel* labCom_;
  SimulatedSign* simulated_;
};

}  // namespace nira
