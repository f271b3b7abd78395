// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class QLabel;

namespace nira {

class NumberBox;

/// The speed in rev/min for which times are shown beside degrees, 0 for none. What is typed is
/// taken with Enter or on leaving the box; what is no number leaves the speed as it is.
class SpeedBox : public QWidget {
  Q_OBJECT

 public:
  explicit SpeedBox(QWidget* parent);

  /// 0, or 1..4000 rev/min.
  int Speed() const { return speed_; }
  /// A speed outside the range is brought to its end.
  void SetSpeed(int speed);

  /// What the box is for, as its tip.
  void ShowPurpose(const QString& text);

 Q_SIGNALS:
  void SpeedChanged(int speed);

 private:
  bool Filter(char16_t& code);
  void Take();

  NumberBox* box_;
  int speed_ = 0;
};

}  // namespace nira
