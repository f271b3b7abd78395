#include "files/FileWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace nira {

namespace {

QString Replace(const QString& path, std::string_view bytes) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return file.errorString();
  const auto size = static_cast<qint64>(bytes.size());
  const bool written = file.write(bytes.data(), size) == size;
  // After a failed write `commit` discards and its own error says nothing of the cause.
  const QString reason = written ? QString() : file.errorString();
  if (file.commit()) return {};
  return reason.isEmpty() ? file.errorString() : reason;
}

}  // namespace

QString FileWriter::Write(const QString& path, std::string_view bytes, Backup backup) {
  if (backup == Backup::Yes) {
    const QString reason = KeepOld(path);
    if (!reason.isEmpty()) return reason;
  }
  return Replace(path, bytes);
}

QString FileWriter::KeepOld(const QString& path) {
  const QFileInfo info(path);
  if (!info.isFile()) return {};  // nothing there, or nothing that could be copied
  const QString name = info.canonicalFilePath();
  if (kept_.contains(name)) return {};
  QFile old(path);
  if (!old.open(QIODevice::ReadOnly)) return old.errorString();
  QSaveFile copy(path + QStringLiteral(".bak"));
  if (!copy.open(QIODevice::WriteOnly)) return copy.errorString();
  while (!old.atEnd()) {
    const QByteArray piece = old.read(1 << 20);
    if (piece.isEmpty() || copy.write(piece) != piece.size()) break;
  }
  if (old.error() != QFileDevice::NoError) return old.errorString();
  if (!old.atEnd()) return copy.errorString();
  if (!copy.commit()) return copy.errorString();
  kept_.insert(name);
  return {};
}

}  // namespace nira
