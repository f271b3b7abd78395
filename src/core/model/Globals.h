// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/Options.h"

#include <QFileInfo>
#include <QString>

namespace nira {

/// The settings of the one running instance, beside the cam program.
struct Globals : Options {
  /// 0 the port is ready, 1 the programmer does not hold CTS, otherwise the platform's error.
  int PortErrorFlag = 0;

  /// Path of the cam file that was loaded or saved last; empty for a new program.
  QString CurrentFile;

  /// Path of the alarm message file that was opened or saved last; empty when none.
  QString MsgFile = {};
  /// `MsgFile` without folders, for questions.
  QString MsgFileTitle() const { return QFileInfo(MsgFile).fileName(); }
  /// True while the alarm messages in memory are in a file of the operator's.
  bool MsgSaved = true;
  /// Font of the printed alarm messages, in the form of QFont's `toString`.
  QString MsgFont = QStringLiteral("Arial");
};

}  // namespace nira
