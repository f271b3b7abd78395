// SPDX-License-Identifier: Apache-2.0
#include "line/WorkFile.h"

#include <QFileInfo>

namespace nira {

bool WorkFile::Create(const QString& path) {
  file_.setFileName(path);
  const QFileInfo old(path);
  const bool stale = old.isSymLink() || old.exists();
  const bool created =
      (!stale || file_.remove()) &&
      file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
  if (!created) error_ = file_.errorString();
  return created;
}

bool WorkFile::Add(std::string_view record) {
  QByteArray line(record.data(), static_cast<qsizetype>(record.size()));
  line += "\r\n";
  if (file_.size() + line.size() > MostBytes) return false;
  if (file_.write(line) == line.size()) return true;
  error_ = file_.errorString();
  return false;
}

}  // namespace nira
