// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

#include <QByteArray>
#include <QFile>
#include <QLockFile>
#include <QString>

#include <string_view>

namespace nira {

/// A file that a reception fills record by record. It belongs to one exchange from `Create` to the
/// end of this object: another one in the same folder is refused, and what is read back is what
/// was added here, whatever stands under the name by then. What was received stays on disk whatever
/// happens.
class WorkFile {
 public:
  static constexpr const char* Sizes = "_._";  ///< received sizes, in the working folder

  /// A programmer that sends on and on ends here; the largest program has 5.2 million bytes.
  static constexpr qint64 MostBytes = 8 << 20;

  explicit WorkFile(const QString& path);

  /// Removes the file of an earlier reception and begins a new one. The fault is `InUse` while
  /// another exchange has the file, otherwise `CannotWrite`.
  Refusal Create();

  /// Adds a record as one line. The fault is `CannotWrite`, or `TooLarge` when the file is full.
  Refusal Add(std::string_view record);

  /// All that was added.
  QByteArray Content();

  QString Path() const { return file_.fileName(); }

 private:
  Fault CannotWrite() const;

  QFile file_;
  QLockFile lock_;
};

}  // namespace nira
