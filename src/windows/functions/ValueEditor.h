// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FunctionRules.h"

#include <QWidget>

class QLabel;

namespace nira {

class CamLabel;
class MessageTable;
class NumberBox;
class ValueScroll;

/// The value editor of the functions window: what is edited and of which cams, round the scroll bar
/// and the box that set it.
class ValueEditor : public QWidget {
  Q_OBJECT

 public:
  /// Takes bar and box into its layout. Its letters are those of the parent.
  ValueEditor(const MessageTable& texts, ValueScroll* bar, NumberBox* box, QWidget* parent);

  /// Title, cams and unit of a value.
  void Show(FunctionValue value, const CamGroup& cams);
  void ShowUnit(FunctionValue value);
  /// The selected cam, index from 0, with its description.
  void ShowCam(int cam, const QString& description);
  /// "RITARDO su CAMME 17 - 20": what the controls are about.
  QString Title() const;

 private:
  QLabel* Label(const char* name, const QString& text);
  void BuildLayout();

  const MessageTable& texts_;
  ValueScroll* scrVal_;
  NumberBox* tmsec_;
  QLabel* lantc_;
  CamLabel* description_;
  QLabel* lNcam_;
  QLabel* lmsec_;
};

}  // namespace nira
