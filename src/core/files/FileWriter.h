// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

#include <QSet>
#include <QString>

#include <string_view>

namespace nira {

/// Writes the tool's files: the new content replaces the old one at once, or not at all.
class FileWriter {
 public:
  enum class Backup { No, Yes };

  /// Replaces the file by `bytes`. With `Backup::Yes` the first replacing of a file in this run
  /// keeps what stood there beside it, under its name with ".bak" added. When it is
  /// refused the old file is whole.
  Refusal Write(const QString& path, std::string_view bytes, Backup backup);

  /// Keeps what stands under this name, as `Backup::Yes` does, for a file that is then written
  /// otherwise.
  Refusal KeepOld(const QString& path);

 private:
  QSet<QString> kept_;
};

}  // namespace nira
