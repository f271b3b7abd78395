// SPDX-License-Identifier: Apache-2.0
#include "line/SimulatedMark.h"

#include <QFileInfo>
#include <QLockFile>

namespace nira {

QString SimulatedMark(const QString& link) {
  return link + QStringLiteral(".simulated");
}

bool IsSimulatedPort(const QString& link) {
  const QString mark = SimulatedMark(link);
  if (!QFileInfo::exists(mark)) return false;
  QLockFile lock(mark);
  lock.setStaleLockTime(0);  // by its program alone, not by its age
  return !lock.tryLock(0) && lock.error() == QLockFile::LockFailedError;
}

qint64 SimulatorProcess(const QString& link) {
  qint64 process = 0;
  QString host;
  QString program;
  const QLockFile lock(SimulatedMark(link));
  return lock.getLockInfo(&process, &host, &program) ? process : 0;
}

}  // namespace nira
