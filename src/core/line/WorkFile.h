// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFile>
#include <QString>

#include <string_view>

namespace nira {

/// A file that a reception fills record by record. What was received stays on disk whatever
/// happens: it is read back only after the job ended well.
class WorkFile {
 public:
  static constexpr const char* Sizes = "_._";  ///< received sizes, in the working folder

  /// A programmer that sends on and on ends here; the largest program has 5.2 million bytes.
  static constexpr qint64 MostBytes = 8 << 20;

  /// Removes the file of an earlier reception and begins a new one; false when that is not
  /// possible.
  bool Create(const QString& path);

  /// Adds a record as one line; false when it cannot be written or the file is full.
  bool Add(std::string_view record);

  /// The system's reason for a failure; empty while there is none, also when the file is full.
  const QString& Error() const { return error_; }
  QString Path() const { return file_.fileName(); }

 private:
  QFile file_;
  QString error_;
};

}  // namespace nira
