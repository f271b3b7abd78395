// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace nira_fuzz {

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// What holds whatever the input is; libFuzzer keeps the input for which it does not.
inline void Hold(bool condition) {
  if (!condition) std::abort();
}

/// The input as a file, in a folder that goes with the process.
class InputFile {
 public:
  explicit InputFile(const char* name) : path_(folder_.filePath(QString::fromLatin1(name))) {}

  const QString& Put(const std::uint8_t* data, std::size_t size) const {
    QFile file(path_);
    const auto length = static_cast<qint64>(size);
    Hold(file.open(QIODevice::WriteOnly) &&
         file.write(reinterpret_cast<const char*>(data), length) == length);
    return path_;
  }
  QString Folder() const { return folder_.path(); }

 private:
  QTemporaryDir folder_;
  QString path_;
};

}  // namespace nira_fuzz
