// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"
#include "ground/Prompts.h"

#include <QDialog>
#include <QStringList>

#include <optional>

namespace nira {

/// What the program is, its version, and buttons for the platform's system information tool and for
/// the manual.
class About : public QDialog {
  Q_OBJECT

 public:
  About(const MessageTable& texts, Prompts& prompts, QWidget* parent);

  /// Starts the first of `tools` that this machine has; tells the operator when it has none.
  void ShowSystemInformation(const QStringList& tools);

  /// Programs that show what a machine is made of, the usual ones of this platform.
  static QStringList SystemTools();

 Q_SIGNALS:
  void ManualWanted();

 private:
  const MessageTable& texts_;
  Prompts& prompts_;
};

}  // namespace nira
