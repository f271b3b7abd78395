// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDialog>

#include <cstdint>
#include <vector>

class QGridLayout;
class QLabel;
class QPushButton;
class QTimer;
class QVBoxLayout;

namespace nira {

class CamLamp;
class CamProgram;
class Clock;
class DegreeCircle;
class FocusScrollBar;
class MessageTable;

/// The rotation demo: a pointer turns round the cycle, and each cam's lamp shows what the selected
/// size does at the pointer's degree. It changes the selection and nothing else.
///
/// A timer turns it by the time that has passed: a desktop that is slow to paint shows fewer of the
/// degrees, and the speed stays.
class BNKRTN : public QDialog {
  Q_OBJECT

 public:
  BNKRTN(CamProgram& program, const MessageTable& texts, const Clock& clock, QWidget* parent);

 protected:
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
  void FocusLamp(int cam);
  void Circle_Asked(int degree);

  bool IsTurning() const;
  void DemoStop();
  void Turn();
  std::int64_t PassesPerDegree() const;
  void ShowTarget();
  void ShowDegree();
  void SpeakLamps();
  void ShowTurning(bool turning);

  CamProgram& program_;
  const MessageTable& texts_;
  const Clock& clock_;

  int DemoAngle = 0;           // degree of the pointer, 0..359
  int DemoSteps = 0;           // degrees turned since the speed was last shown
  std::int64_t turnedTo_ = 0;  // the clock's time up to which the pointer has turned
  std::int64_t passes_ = 0;    // that the pointer has stood at its degree

  DegreeCircle* circle_;
  std::vector<CamLamp*> label1_;  // by cam, from 0
  FocusScrollBar* vScrForm_;
  FocusScrollBar* scrolVel_;
  QLabel* lnFor_;
  QLabel* vgradi_;
  QLabel* lVeloc_;
  QLabel* target_;
  QPushButton* strt_;
  QPushButton* stp_;
  QPushButton* command1_;
  QTimer* turn_;  // runs while the pointer turns
  QTimer* timer1_;
  QTimer* timer2_;
};

}  // namespace nira
