// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "controls/NumberBox.h"
#include "model/FunctionRules.h"

#include <QDialog>

#include <array>
#include <functional>

class QCheckBox;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace nira {

class RangeNote;
class ValueColumns;
class ValueEditor;
class ValueScroll;

/// The functions window: which functions work, the value of each cam or group, and the
/// configuration. Values are in the program as soon as they are changed; the boxes are taken over
/// by closing, in whatever way: there is no cancel. A typed value that is refused stays in its box,
/// marked, with what is allowed in a line below.
class FuncSel : public QDialog {
  Q_OBJECT

 public:
  /// `openCalculator` opens the advance calculator over the selected cam; without one its button
  /// is disabled.
  FuncSel(Instance& instance, std::function<void()> openCalculator, QWidget* parent);
  ~FuncSel() override;
  FuncSel(const FuncSel&) = delete;
  FuncSel& operator=(const FuncSel&) = delete;

  /// Closing takes the boxes over, so Escape is no way out.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// One row of the configuration: a button that leads to a box.
  struct Row {
    QRadioButton* option;
    NumberBox* box;
  };
  enum RowIndex { OutputSize, EncoderShift, RotationSense, SpeedLimit, Rows };

  template <typename Control>
  Control* Named(Control* control, const char* name) const;
  NumberBox* Box(const char* name, const char* design, const DegreeBox::KeyFilter& filter);
  QCheckBox* Check(const char* name, const char* caption, void (FuncSel::*click)());
  void BuildValueEditor();
  void BuildFrAbil();
  void BuildFrConf();
  void BuildButtons();
  void BuildLayout();
  void SetTabOrder();
  void ConnectAll();

  void Form_Load();
  void Form_Activate();
  void Form_Unload();
  void ChkANT_Click();
  void ChkRIT_Click();
  void ChkRAP17_Click();
  void ChkRAP25_Click();
  void LabCam_Click(int cam);
  void ScrVal_Change(int value);
  void TxANT_LostFocus(Qt::FocusReason reason);
  bool TxANT_KeyPress(char16_t code);
  bool Tmsec_KeyPress(char16_t code);
  bool Tforusc_KeyPress(char16_t code);
  bool Trotaz_KeyPress(char16_t code);
  void Option_Click(const Row& row);
  void Configuration_GotFocus(const Row& row, Qt::FocusReason reason);
  void tDEMO_Click();

  void ShowAdvanceCams();
  void FillConfiguration();
  void ComputeMaxAdvanceIndex();
  void DrawValueBars();

  QString GroupTitle(FunctionValue value, const CamGroup& cams) const;
  void ShowEditorInUse();
  EnabledFunctions Enabled() const;
  void Change(const std::function<void(FunctionsBlock&)>& change);
  void ShowSelectionInUse();
  void ShowSelection();
  void SetRange(FunctionValue value);
  void SpeakOf(const QString& value);
  void SetScroll(int value);
  void TakeValue(int value);
  bool TakeAdvanceCount();
  void EnableGroups();
  void ReportRange(const QString& range);
  void RefuseAdvanceCount();
  QString AdvanceRange() const;
  int AdvanceCount() const;
  const FunctionsBlock& Block() const { return instance_.Program.Functions(); }

  Instance& instance_;
  std::function<void()> openCalculator_;
  ValueColumns* columns_ = nullptr;
  ValueScroll* scrVal_ = nullptr;
  NumberBox* tmsec_ = nullptr;
  ValueEditor* editor_ = nullptr;
  QGroupBox* frAbil_ = nullptr;
  QCheckBox* chkAnt_ = nullptr;
  NumberBox* txAnt_ = nullptr;
  QCheckBox* chkRit_ = nullptr;
  QCheckBox* chkRap17_ = nullptr;
  QCheckBox* chkRap25_ = nullptr;
  QGroupBox* frConf_ = nullptr;
  std::array<Row, Rows> rows_{};
  QPushButton* tDemo_ = nullptr;
  RangeNote* note_ = nullptr;
  QPushButton* tOk_ = nullptr;

  std::int16_t MaxAdvanceIndex = 0;  ///< highest index that `AdvanceLast` may take
  bool ScrollGuard = false;  ///< the next change of the scroll bar is the program's: not stored
  bool closed_ = false;
};

}  // namespace nira
