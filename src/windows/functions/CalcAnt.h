// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QTimer;
class QVBoxLayout;

namespace nira {

class FocusScrollBar;
class MessageTable;
class ShiftDiagram;

/// The advance calculator: what an advance time means in degrees at a speed, which time gives a
/// wanted angle, and the selected cam shifted by the result. It changes nothing in the program.
class CalcAnt : public QDialog {
  Q_OBJECT

 public:
  CalcAnt(const CamProgram& program, const MessageTable& texts, QWidget* parent);

 private:
  void BuildControls();
  QVBoxLayout* BuildResult();
  QHBoxLayout* BuildHead();
  void BuildLayout();
  void Form_Load();

  void ScrollRPM_Change();
  void ScrollAnt_Change();
  void ScrAntRis_Change();
  void Timer1_Timer();
  void ShowAdvance();
  void LAntRis_Change(int degrees);

  const CamProgram& program_;
  const MessageTable& texts_;
  CamRow programmed_;
  CamRow ShiftedRow;

  FocusScrollBar* scrollRpm_;
  FocusScrollBar* scrollAnt_;
  FocusScrollBar* scrAntRis_;
  QLabel* speed_;
  QLabel* lAntImp_;
  QLabel* wanted_;
  QLabel* lAntRis_;
  QLabel* lGirAnt_;
  QLabel* label14_;
  ShiftDiagram* diagram_;
  QTimer* timer1_;
};

}  // namespace nira
