// SPDX-License-Identifier: Apache-2.0
#include "files/FileWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace nira {

namespace {

/// Writes unbuffered and piece by piece: QSaveFile's own buffer would be flushed by `commit`, which
/// renames also when the disk was full, and a large write may come back short without an error.
/// The reason of a failure must be read before anything else is done with the file.
bool WriteAll(QSaveFile& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const qint64 written = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// `reason` is empty for what is no file.
Fault CannotWrite(const QString& path, const QString& reason) {
  return {.What = Fault::Kind::CannotWrite, .Path = path, .Text = reason};
}

Refusal Replace(const QString& path, std::string_view bytes) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && WriteAll(file, bytes) &&
      file.commit()) {
    return std::nullopt;
  }
  return CannotWrite(path, file.errorString());
}

}  // namespace

Refusal FileWriter::Write(const QString& path, std::string_view bytes, Backup backup) {
  // A device, a pipe or a folder is not replaced by a file.
  const QFileInfo target(path);
  if (target.exists() && !target.isFile()) return CannotWrite(path, {});
  if (backup == Backup::Yes) {
    if (auto refusal = KeepOld(path)) return refusal;
  }
  return Replace(path, bytes);
}

Refusal FileWriter::KeepOld(const QString& path) {
  const QFileInfo info(path);
  if (!info.isFile()) return std::nullopt;  // nothing there, or nothing that could be copied
  const QString name = info.canonicalFilePath();
  if (kept_.contains(name)) return std::nullopt;
  QFile old(path);
  if (!old.open(QIODevice::ReadOnly)) return CannotWrite(path, old.errorString());
  QSaveFile copy(path + QStringLiteral(".bak"));
  const auto failed = [&] {
    return CannotWrite(path, copy.fileName() + QStringLiteral(": ") + copy.errorString());
  };
  if (!copy.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return failed();
  while (!old.atEnd()) {
    const QByteArray piece = old.read(1 << 20);
    if (piece.isEmpty()) break;
    const std::string_view bytes(piece.constData(), static_cast<std::size_t>(piece.size()));
    if (!WriteAll(copy, bytes)) return failed();
  }
  if (old.error() != QFileDevice::NoError || !old.atEnd()) {
    return CannotWrite(path, old.errorString());
  }
  if (!copy.commit()) return failed();
  kept_.insert(name);
  return std::nullopt;
}

}  // namespace nira
