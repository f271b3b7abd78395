// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

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
};

}  // namespace nira
