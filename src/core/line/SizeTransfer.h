// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Job.h"

#include <QStringList>

#include <string>
#include <string_view>

namespace nira {

/// Sends the whole program to the programmer and reads one back: what the menu and kplctl both do.
///
/// The program's limits become the programmer's; after both commands the display is to be rebuilt,
/// whatever their end, and `Undo` disabled after a `Done` reception.
class SizeTransfer {
 public:
  explicit SizeTransfer(Comm& comm) : comm_(comm) {}

  /// Size transmit: asks first when there is no phase to send.
  TransferEnd Tr_Siz(const JobMonitor& showMonitor);

  /// Size receive: asks first when unsaved work would be replaced. Only a program that came whole
  /// replaces the present one; until then its limits and its file stay.
  TransferEnd Rc_Siz(const JobMonitor& showMonitor);

  /// What the operator should know of a `Done` transfer: values that went out changed, or that came
  /// outside their ranges.
  const QString& Remark() const { return remark_; }

 private:
  TransferEnd RunJob(const Job& job, const JobMonitor& showMonitor);
  TransferEnd Prepare(const Job& job);
  TransferEnd TakeLimits(const Job& job, const std::string& reply);
  TransferEnd Import(std::string_view received);
  bool MayReplace();
  bool MaySendNothing();
  bool MayCut(const CamProgram& before);
  void Remark(TextNumber text, const QStringList& values);

  Comm& comm_;
  QString remark_;
};

/// True when the program uses a size above `sizes` or a cam above `cams`: a phase, a description,
/// an advance, or a delay or ratio of the groups from cam 17 on.
bool UsesMore(const CamProgram& program, int sizes, int cams);

}  // namespace nira
