// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/BusyPointer.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace nira {

/// Keeps the operator's input from the windows that are open when this is made: keys, clicks, drops
/// and closings are lost on them for as long as it stands, also those that still wait when it ends.
/// Windows that open meanwhile take their input. The pointer is busy.
class InputHold : public QObject {
  Q_OBJECT

 public:
  InputHold();
  ~InputHold() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Holds(const QObject* watched) const;

  BusyPointer pointer_;
  QList<QPointer<QWidget>> windows_;
};

}  // namespace nira
