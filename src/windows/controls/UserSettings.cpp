// SPDX-License-Identifier: Apache-2.0
#include "controls/UserSettings.h"

#include <QFile>
#include <QSettings>

namespace nira {

namespace {

/// A file that is larger was not written here: it is begun anew, not read into memory.
constexpr qint64 largest = qint64{64} * 1024;  // bytes

bool TooLarge(const QString& path) {
  return QFile(path).size() > largest;
}

QVariant Read(const QString& path, const char* key) {
  if (TooLarge(path)) return {};
  return QSettings(path, QSettings::IniFormat).value(QLatin1String(key));
}

void Write(const QString& path, const char* key, const QVariant& value) {
  if (TooLarge(path)) QFile::remove(path);
  QSettings(path, QSettings::IniFormat).setValue(QLatin1String(key), value);
}

}  // namespace

int UserSettings::Number(const char* key, int standard) const {
  bool ok = false;
  const int number = Read(path_, key).toInt(&ok);
  return ok ? number : standard;
}

QByteArray UserSettings::Bytes(const char* key) const {
  return Read(path_, key).toByteArray();
}

void UserSettings::Keep(const char* key, int number) {
  Write(path_, key, number);
}

void UserSettings::Keep(const char* key, const QByteArray& bytes) {
  Write(path_, key, bytes);
}

}  // namespace nira
