// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MessageListing.h"
#include "printing/PrintPane.h"

#include <QDialog>

namespace nira {

/// The print window of the alarm messages.
class PrnMsg : public QDialog {
  Q_OBJECT

 public:
  PrnMsg(Instance& instance, QWidget* parent);

 private:
  MessageListing listing_;
};

}  // namespace nira
