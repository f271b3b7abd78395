// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"

#include <QDialog>

#include <vector>

class QCheckBox;
class QScrollBar;

namespace nira {

class CamDiagram;
class CamLabel;

/// The selected cam on all sizes: a row a size, painted as in the main window. A click or the arrow
/// keys select a size and the window stays; a double click or Enter closes it, too.
class AllSizes : public QDialog {
  Q_OBJECT

 public:
  /// `speed` in rev/min, 0 for none: as in the main window.
  AllSizes(Instance& instance, int speed, QWidget* parent);

 Q_SIGNALS:
  /// Another size is the current one.
  void SizeSelected();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void BuildControls();
  void ConnectAll();
  void BuildLayout();
  void ListSizes();
  void Arrange();
  void ShowRows();
  void ShowRow(int row);
  void Select(int index);
  int Selected() const;

  Instance& instance_;
  const int speed_;
  std::vector<int> sizes_;  // that are listed, from 1
  CamDiagram* diagram_;
  QScrollBar* scroll_;  // its value is the index of the size in the first row
  QCheckBox* hideEmpty_;
  CamLabel* reading_;
  int turned_ = 0;  // by the wheel, less than a row
};

}  // namespace nira
