// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamLabel.h"
#include "controls/Instance.h"
#include "controls/SimulatedSign.h"
#include "line/PortNames.h"

#include <QObject>
#include <QTimer>

class QLabel;
class QStatusBar;

namespace nira {

/// What no other control says: the port and whether a simulated programmer is behind it, the model,
/// the degree under the pointer, and whether the program differs from what was last loaded or
/// saved.
class StatusLine : public QObject {
  Q_OBJECT

 public:
  StatusLine(Instance& instance, const PortNames& ports, QStatusBar* bar);

  /// Writes everything anew.
  void Show();

  /// Looks up what stands behind the port and shows it.
  void LookAtPort();

  /// An exchange begins: the port's state is followed until `PortAtRest`.
  void WatchPort();

  /// The exchange is over.
  void PortAtRest();

  /// The program was taken as saved: shows whether a file holds it or none.
  void ShowFile();

  /// What is read in the diagram: a degree 0..359, -1 for none, the degrees from one line to the
  /// other, -1 for none, and the cams that are ON there.
  void ShowLine(int degree, int difference, const QString& on);
  static QString Reading(const Comm& comm, int degree, int difference, const QString& on);

 private:
  QLabel* Add(const char* name, bool right);
  CamLabel* AddReading();
  SimulatedSign* AddSign();
  void ShowPort();
  QString PortText(const QString& settings, const QString& state) const;
  QString ClosedState() const;

  Instance& instance_;
  const PortNames& ports_;
  QStatusBar* bar_;
  QLabel* port_;
  QLabel* model_;
  SimulatedSign* simulated_;  // stands where a passing note does not cover it
  CamLabel* degree_;
  QLabel* changed_;
  QTimer watch_;
  QString device_;
  bool onFile_ = false;  // where the program does not differ
};

}  // namespace nira
