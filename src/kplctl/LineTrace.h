// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/SerialControl.h"

#include <QFile>

#include <string_view>

namespace nira {

/// A file of every byte that goes over the line, for people:
///
///     1.234 > 02 46 30 31 03 4A                                |.F01.J|
///
/// The time is that of the line's first byte, in seconds since the trace began; bytes that come
/// within `Span` of it stand in one line, up to `Width`. ">" is to the programmer, "<" from it.
/// Only that one line is held in memory, and the file has all lines before it, whatever happens.
class LineTrace {
 public:
  enum class Way { Out, In };

  static constexpr std::size_t Width = 16;  ///< bytes in a line
  static constexpr int Span = 20;           ///< milliseconds

  explicit LineTrace(const Clock& clock) : clock_(clock) {}
  ~LineTrace() { Close(); }
  LineTrace(const LineTrace&) = delete;
  LineTrace& operator=(const LineTrace&) = delete;

  /// Begins a new file; returns the system's reason when that failed.
  QString Open(const QString& path);
  bool IsOpen() const { return file_.isOpen(); }

  void Bytes(Way way, std::string_view bytes);
  /// A line of words, "1.234 # port opened".
  void Remark(const QString& text);

  /// Ends the file; returns the system's reason when something could not be written.
  QString Close();

 private:
  void Begin(Way way);
  void EndLine();
  void Write(const QByteArray& line);
  QByteArray Time(std::int64_t time) const;

  const Clock& clock_;
  QFile file_;
  QString failure_;
  std::int64_t start_ = 0;
  Way way_ = Way::Out;
  std::int64_t at_ = 0;  // of the first byte in line_
  QByteArray line_;      // bytes that stand in no line of the file yet
};

}  // namespace nira
