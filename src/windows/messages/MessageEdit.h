// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineEdit>

namespace nira {

/// The colour of the line between the two rows of a message, quieter than its text.
QColor MarkColour(const QPalette& palette, bool selected);

/// The box for a message, wide enough for all of it in a fixed-width font: a line shows where the
/// second row of the programmer's display begins.
class MessageEdit : public QLineEdit {
  Q_OBJECT

 public:
  using QLineEdit::QLineEdit;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace nira
