// SPDX-License-Identifier: Apache-2.0
#include "line/PortHolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace nira {

namespace {

QString FirstLine(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QString::fromLocal8Bit(file.readLine(256)).trimmed();
}

/// "name (pid)" of a process that lives; empty otherwise.
QString ProcessName(const QString& pid) {
  const QString name = FirstLine(QStringLiteral("/proc/%1/comm").arg(pid));
  return name.isEmpty() ? QString() : QString(name + QStringLiteral(" (") + pid + u')');
}

/// The process that left its number in the lock file of the device.
QString LockHolder(const QString& device) {
  QString name = device.mid(QStringLiteral("/dev/").size());
  name.replace(u'/', u'_');
  bool number = false;
  const QString pid = FirstLine(QStringLiteral("/var/lock/LCK..") + name);
  pid.toInt(&number);
  return number ? ProcessName(pid) : QString();
}

bool HasOpen(const QString& pid, const QString& device) {
  const QDir folder(QStringLiteral("/proc/%1/fd").arg(pid));
  const QStringList links =
      folder.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
  for (const QString& link : links) {
    if (QFileInfo(folder.filePath(link)).symLinkTarget() == device) return true;
  }
  return false;
}

}  // namespace

QString PortHolder(const QString& device) {
  if (!device.startsWith(QStringLiteral("/dev/"))) return {};
  if (const QString holder = LockHolder(device); !holder.isEmpty()) return holder;
  const QStringList processes = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
  for (const QString& pid : processes) {
    if (pid.at(0).isDigit() && HasOpen(pid, device)) return ProcessName(pid);
  }
  return {};
}

}  // namespace nira
