// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "messages/DisplayRow.h"

#include <QDialog>
#include <QLineEdit>

namespace nira {

/// Changes one alarm message, beside the programmer's display as it will show it.
class ModMsg : public QDialog {
  Q_OBJECT

 public:
  /// `number` of the message, from 1.
  ModMsg(Instance& instance, int number, QWidget* parent);

  /// Opens for correcting: of a text that can be seen nothing is selected, which the first key
  /// would replace.
  void setVisible(bool visible) override;

 private:
  void BuildLayout();
  QLayout* BuildButtons();
  void Text1_Typed();
  void kok_Click();

  Instance& instance_;
  int number_;
  QLineEdit* text1_ = nullptr;
  DisplayFrame* display_ = nullptr;
};

}  // namespace nira
