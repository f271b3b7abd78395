// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/FocusScrollBar.h"
#include "files/MessageTable.h"
#include "functions/CamLamp.h"
#include "functions/DegreeCircle.h"
#include "functions/DemoClock.h"
#include "model/CamProgram.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <vector>

namespace nira {

/// The rotation demo: a pointer turns round the cycle, and each cam's lamp shows what the selected
/// size does at the pointer's degree. It changes the selection and nothing else.
///
/// The turning loop runs inside the click on "&START" and lets the user interface work at every
/// degree. Whatever closes the window meanwhile only stops the loop; the window closes at its end.
class BNKRTN : public QDialog {
  Q_OBJECT

 public:
  /// Without a clock of its own the demo turns by the machine's.
  BNKRTN(CamProgram& program, const MessageTable& texts, QWidget* parent,
         DemoClock* clock = nullptr);

  void done(int result) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void BuildControls();
  QVBoxLayout* BuildSizeChoice();
  QVBoxLayout* BuildReadings();
  QWidget* BuildPanel();
  QGridLayout* BuildLamps();
  void BuildLayout();
  void Form_Load();

  void VScrForm_Change();
  void Strt_Click();
  void Stp_Click();
  void Timer1_Timer();
  void Timer2_Timer();
  void Label1_DblClick(int cam);

  void Turn();
  bool Wait();
  bool Pass();
  void ShowLamps();
  void ShowTurning(bool turning);

  CamProgram& program_;
  const MessageTable& texts_;
  SystemDemoClock systemClock_;
  DemoClock& clock_;

  int DemoAngle = 0;  // degree of the pointer, 0..359
  int DemoSteps = 0;  // degrees turned since the speed was last shown
  bool DemoStop = false;
  bool turning_ = false;
  bool closing_ = false;   // the window closes when the loop has ended
  bool quitting_ = false;  // and the program with it

  DegreeCircle* circle_;
  std::vector<CamLamp*> label1_;  // by cam, from 0
  FocusScrollBar* vScrForm_;
  FocusScrollBar* scrolVel_;
  QLabel* lnFor_;
  QLabel* vgradi_;
  QLabel* lVeloc_;
  QPushButton* strt_;
  QPushButton* stp_;
  QPushButton* command1_;
  QTimer* timer1_;
  QTimer* timer2_;
};

}  // namespace nira
