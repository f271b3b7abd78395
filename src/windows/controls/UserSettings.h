// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

namespace nira {

/// What this user's windows keep from run to run beside the options file, whose layout is shared
/// with other versions: an INI file of names and values. Nothing of it is needed: a value that is
/// not there or is no such value gives the standard one, and what cannot be written is forgotten.
class UserSettings {
 public:
  /// `path` need not exist yet; it is made with the first value that is kept.
  explicit UserSettings(const QString& path) : path_(path) {}

  int Number(const char* key, int standard) const;
  QByteArray Bytes(const char* key) const;

  void Keep(const char* key, int number);
  void Keep(const char* key, const QByteArray& bytes);

 private:
  QString path_;
};

}  // namespace nira
