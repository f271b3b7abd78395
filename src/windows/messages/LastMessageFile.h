// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/UserSettings.h"

#include <QFileInfo>

namespace nira {

/// The message file that was opened, saved or sent last, in this run or an earlier one; empty when
/// there is none or it is gone.
inline QString LastMessageFile(const UserSettings& user) {
  const QString path = QString::fromUtf8(user.Bytes("messages/file"));
  return QFileInfo::exists(path) ? path : QString();
}

/// Keeps it for the dialogs that choose one.
inline void KeepMessageFile(UserSettings& user, const QString& path) {
  user.Keep("messages/file", QFileInfo(path).absoluteFilePath().toUtf8());
}

}  // namespace nira
