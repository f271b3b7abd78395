// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "line/PortNames.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

#include <vector>

namespace nira {

/// The choice of serial port and speed. What is clicked holds at once; only OK writes it to the
/// options file, and Cancel takes nothing back.
class SETCOMM : public QDialog {
  Q_OBJECT

 public:
  SETCOMM(Instance& instance, const PortNames& ports, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* BuildPorts();
  QWidget* BuildSpeeds();
  QLayout* BuildButtons();
  void AddOthers(QGridLayout* rows, const std::vector<PortInfo>& others);
  int AddPort(QGridLayout* rows, const PortInfo& port);
  QLabel* PortLabel(const QString& text, bool present, QRadioButton* port);
  QString Note(const PortInfo& port) const;

  void Baud_Click(int baud);
  void OpCOM_Click(int number);
  void ShowSettPort();
  void OKButton_Click();

  Instance& instance_;
  const PortNames& ports_;
  QLabel* settPort_;
};

}  // namespace nira
