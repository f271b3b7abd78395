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
class NumberBox;
class RangeNote;
class ShiftDiagram;

/// The advance calculator: what an advance time means in degrees at a speed, which time gives a
/// wanted angle, and the selected cam shifted by the result. Values are set with the bars or typed.
/// It changes nothing in the program.
class CalcAnt : public QDialog {
  Q_OBJECT

 public:
  CalcAnt(const CamProgram& program, const MessageTable& texts, QWidget* parent);
  ~CalcAnt() override;
  CalcAnt(const CalcAnt&) = delete;
  CalcAnt& operator=(const CalcAnt&) = delete;

 private:
  /// A bar, the value that it stands at, and the box that takes the same value typed.
  struct Setting {
    FocusScrollBar* bar;
    QLabel* value;
    NumberBox* box;
    void (CalcAnt::*change)();
  };

  Setting BuildSetting(const char* barName, const char* valueName, NumberBox* box,
                       void (CalcAnt::*change)());
  NumberBox* BuildBox(const char* name, const Setting& setting);
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
  void Show(const Setting& setting);
  void TakeTyped(const Setting& setting);

  const CamProgram& program_;
  const MessageTable& texts_;
  CamRow programmed_;
  CamRow ShiftedRow;
  int shiftedBy_ = 0;  // degrees 0..359

  Setting speed_;   // ScrollRPM
  Setting time_;    // ScrollAnt
  Setting wanted_;  // ScrAntRis
  QLabel* lAntRis_;
  QLabel* lGirAnt_;
  QLabel* label14_;
  ShiftDiagram* diagram_;
  RangeNote* note_;
  QTimer* timer1_;
};

}  // namespace nira
