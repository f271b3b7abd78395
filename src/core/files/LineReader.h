// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

#include <QFile>
#include <QString>

#include <memory>
#include <optional>
#include <string_view>

namespace nira {

/// Reads a text file line by line in bounded memory. A line ends with CR LF or LF; the last one may
/// end with the file. A line of more than `MaxLine` bytes ends the reading with `Overlong`.
class LineReader {
 public:
  static constexpr std::size_t MaxLine = 65536;

  /// Opens the file; `Failure` says why when that failed (a folder cannot be read either).
  explicit LineReader(const QString& path);

  /// Reads a copy of `bytes` as if a file held them.
  explicit LineReader(std::string_view bytes);

  bool IsOpen() const { return !failure_; }
  /// Why it could not be opened, or read to its end; none while all is well.
  const Refusal& Failure() const { return failure_; }

  /// Of the file; empty for bytes in memory.
  QString Path() const { return file_.fileName(); }

  /// The next line without its end, valid until the next call; none at the end of the file.
  std::optional<std::string_view> Next();

  /// What is in memory of the lines to come. A caller that finds a whole line at its start may
  /// take it, its end included, with `TakeLine`: quicker than `Next`, which has to look for it.
  std::string_view Waiting() const { return {buffer_.get() + begin_, end_ - begin_}; }
  void TakeLine(std::size_t bytes) {
    begin_ += bytes;
    ++lineNumber_;
  }

  /// Gives the file back to the system; no line comes after it.
  void Close();

  bool AtEnd();
  bool Overlong() const { return overlong_; }
  /// Number of the line that `Next` returned last, from 1.
  int LineNumber() const { return lineNumber_; }

 private:
  bool Refill();
  void Fail(const QString& reason);

  QFile file_;
  Refusal failure_;
  std::unique_ptr<char[]> buffer_;
  std::size_t begin_ = 0;  // of what is not yet returned
  std::size_t end_ = 0;
  bool fileDone_ = false;
  bool overlong_ = false;
  int lineNumber_ = 0;
};

}  // namespace nira
