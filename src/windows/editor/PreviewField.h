// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"
#include "model/PhasePreview.h"

#include <QLabel>

namespace nira {

/// What the pair in the boxes would do, in two lines: what it is for or what is to be minded, and
/// the changes. Amber where the operator should look twice; nothing is held back.
class PreviewField : public QLabel {
  Q_OBJECT

 public:
  explicit PreviewField(QWidget* parent);

  /// `unasked`: nobody typed the pair, and no line of the list has it. With a speed (rev/min, 0 for
  /// none) times stand beside degrees.
  void ShowPreview(const PhasePreview& preview, bool unasked, const MessageTable& texts, int speed);

  bool Amber() const { return amber_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool amber_ = false;
  QString length_;  // at the end of the words, of the one phase that comes
};

}  // namespace nira
