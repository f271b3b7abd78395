// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QStringList>

namespace nira {

/// A state in a word or two: amber where the operator should know it, plain where all is well.
class StateChip : public QLabel {
  Q_OBJECT

 public:
  StateChip(const char* name, QWidget* parent);

  /// `all` are the texts that it may have: it is as wide as the widest.
  void ShowState(const QString& text, bool amber, const QStringList& all);

  bool Amber() const { return amber_; }

 Q_SIGNALS:
  void Clicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool amber_ = false;
};

}  // namespace nira
