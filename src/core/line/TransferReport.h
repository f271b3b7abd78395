// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// How far a transfer is.
struct TransferCount {
  bool Sizes = true;  ///< its items are sizes; messages otherwise
  int Item = 0;       ///< number of the one in progress; 0 before the first
  int Items = 0;      ///< how many there are
  int Frames = 0;     ///< that went over the line, each counted once
  int Seconds = -1;   ///< that it will still take, about; -1 while nobody can tell
};

/// Where a job shows what it does.
class TransferReport {
 public:
  virtual ~TransferReport() = default;

  /// The programmer's model.
  virtual void Title(const QString& text) = 0;
  /// The job.
  virtual void Label1(const QString& text) = 0;
  /// The item in progress.
  virtual void Label2(const QString& text) = 0;
  /// Whole percentage 0..100; told when a job begins and then only when it changes.
  virtual void Progress(int percent) = 0;
  /// Told now and then while a job runs.
  virtual void Count(const TransferCount& /*count*/) {}
};

}  // namespace nira
