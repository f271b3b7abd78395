// SPDX-License-Identifier: Apache-2.0
#include "line/WorkFile.h"

#include <QFileInfo>

namespace nira {

WorkFile::WorkFile(const QString& path) : file_(path), lock_(path + QStringLiteral(".lock")) {
  lock_.setStaleLockTime(0);  // however long the exchange takes: only a dead program's is stale
}

Fault WorkFile::CannotWrite() const {
  return {.What = Fault::Kind::CannotWrite, .Path = Path(), .Text = file_.errorString()};
}

Refusal WorkFile::Create() {
  // Where no lock can be made there is no file either, and the file's own reason is the clearer.
  if (!lock_.tryLock(0) && lock_.error() == QLockFile::LockFailedError) {
    return Fault{.What = Fault::Kind::InUse, .Path = Path()};
  }
  const QFileInfo old(Path());
  const bool stale = old.isSymLink() || old.exists();
  const bool created =
      (!stale || file_.remove()) &&
      file_.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered);
  return created ? Refusal() : CannotWrite();
}

Refusal WorkFile::Add(std::string_view record) {
  QByteArray line(record.data(), static_cast<qsizetype>(record.size()));
  line += "\r\n";
  if (file_.size() + line.size() > MostBytes) {
    return Fault{.What = Fault::Kind::TooLarge, .Path = Path()};
  }
  return file_.write(line) == line.size() ? Refusal() : CannotWrite();
}

QByteArray WorkFile::Content() {
  return file_.seek(0) ? file_.readAll() : QByteArray();
}

}  // namespace nira
