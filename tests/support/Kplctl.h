// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "CommandLine.h"

#include <QStringList>
#include <QTextStream>

namespace nira {

/// What a call of kplctl prints and returns.
struct Ran {
  int status = 0;
  QString out;
  QString err;
};

inline Ran Kplctl(const QStringList& words) {
  Ran ran;
  QTextStream out(&ran.out);
  QTextStream err(&ran.err);
  ran.status = RunKplctl(QStringList{QStringLiteral("kplctl")} + words, out, err);
  return ran;
}

/// The path of a file in the samples' folder.
inline QString Sample(const char* name) {
  return QStringLiteral(NIRA_SOURCE_FOLDER "/samples/") + QString::fromLatin1(name);
}

}  // namespace nira
