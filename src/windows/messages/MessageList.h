// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QListWidget>
#include <QTimer>

namespace nira {

/// The list of all messages. One of them is always selected; typing its number selects it.
class MessageList : public QListWidget {
  Q_OBJECT

 public:
  explicit MessageList(const CamProgram& program, QWidget* parent = nullptr);

  /// Lists the messages anew and stays at its place.
  void ShowAll();
  /// Rewrites one entry.
  void ShowOne(int number);

  /// Number of the selected message, from 1.
  int Selected() const { return currentRow() + 1; }
  void Select(int number);

  void keyboardSearch(const QString& /*text*/) override {}  // an entry begins with its number

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void TypeDigit(int digit);

  const CamProgram& program_;
  int typed_ = 0;       // the number typed so far
  int digits_ = 0;      // and of how many digits
  QTimer pause_{this};  // after it the next digit begins a new number
};

}  // namespace nira
