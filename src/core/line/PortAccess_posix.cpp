// SPDX-License-Identifier: Apache-2.0
#include "line/PortAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <vector>

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

QString LockFile(const QString& device) {
  QString name = device.mid(QStringLiteral("/dev/").size());
  name.replace(u'/', u'_');
  return QStringLiteral("/var/lock/LCK..") + name;
}

/// The number of the process that left the lock file of the device; 0 when there is none.
pid_t LockingProcess(const QString& device) {
  return std::max(FirstLine(LockFile(device)).toInt(), 0);
}

std::optional<struct stat> StatusOf(const QString& path) {
  struct stat status {};
  if (::stat(QFile::encodeName(path).constData(), &status) != 0) return std::nullopt;
  return status;
}

/// The same device, whatever the names. Pseudo-terminals have the same numbers in each container:
/// theirs count within one file system.
bool SameDevice(const struct stat& a, const struct stat& b) {
  constexpr unsigned firstTerminal = 136;
  constexpr unsigned lastTerminal = 143;
  if (!S_ISCHR(a.st_mode) || !S_ISCHR(b.st_mode) || a.st_rdev != b.st_rdev) return false;
  const unsigned kind = major(a.st_rdev);
  return kind < firstTerminal || kind > lastTerminal || a.st_dev == b.st_dev;
}

bool HasOpen(const QString& pid, const struct stat& device) {
  const QDir folder(QStringLiteral("/proc/%1/fd").arg(pid));
  const QStringList files =
      folder.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
  return std::any_of(files.begin(), files.end(), [&folder, &device](const QString& file) {
    const auto opened = StatusOf(folder.filePath(file));
    return opened && SameDevice(*opened, device);
  });
}

bool IsInGroup(gid_t group) {
  std::vector<gid_t> groups(static_cast<std::size_t>(std::max(::getgroups(0, nullptr), 0)));
  const int count = ::getgroups(static_cast<int>(groups.size()), groups.data());
  groups.resize(static_cast<std::size_t>(std::max(count, 0)));
  return group == ::getegid() || std::find(groups.begin(), groups.end(), group) != groups.end();
}

}  // namespace

QString PortHolder(const QString& device, qint64 except) {
  const auto status = StatusOf(device);
  if (!status || !S_ISCHR(status->st_mode)) return {};
  if (const pid_t locking = LockingProcess(device); locking > 0 && locking != except) {
    if (QString holder = ProcessName(QString::number(locking)); !holder.isEmpty()) return holder;
  }
  const QStringList processes = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
  for (const QString& pid : processes) {
    const bool counts = pid.at(0).isDigit() && pid.toLongLong() != except;
    if (counts && HasOpen(pid, *status)) return ProcessName(pid);
  }
  return {};
}

QString LeftLock(const QString& device) {
  const pid_t locking = LockingProcess(device);
  const bool ended = locking > 0 && ::kill(locking, 0) != 0 && errno == ESRCH;
  return ended ? LockFile(device) : QString();
}

QString GroupToJoin(const QString& device) {
  const auto status = StatusOf(device);
  constexpr mode_t both = S_IRGRP | S_IWGRP;
  // What the owner may do is written for the owner alone, whatever groups he is in.
  if (!status || (status->st_mode & both) != both || status->st_uid == ::geteuid() ||
      IsInGroup(status->st_gid)) {
    return {};
  }
  const QString name = QFileInfo(device).group();
  return name.isEmpty() ? QString::number(status->st_gid) : name;
}

}  // namespace nira
