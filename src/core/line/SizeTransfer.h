// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Job.h"

#include <string>

namespace nira {

/// Sends the whole program to the programmer and reads one back: what the menu and kplctl both do.
///
/// The program's limits become the programmer's; after both commands the display is to be rebuilt,
/// whatever their end, and `Undo` disabled after a `Done` reception.
class SizeTransfer {
 public:
  explicit SizeTransfer(Comm& comm) : comm_(comm) {}

  /// Size transmit.
  TransferEnd Tr_Siz(const JobMonitor& showMonitor);

  /// Size receive: asks first when unsaved work would be replaced. Only a program that came whole
  /// replaces the present one.
  TransferEnd Rc_Siz(const JobMonitor& showMonitor);

 private:
  TransferEnd RunJob(const Job& job, const JobMonitor& showMonitor);
  TransferEnd Prepare();
  TransferEnd TakeLimits(const std::string& reply);
  bool MayCut(const CamProgram& before);

  Comm& comm_;
};

/// True when the program uses a size above `sizes` or a cam above `cams`: a phase, a description,
/// an advance, or a delay or ratio of the groups from cam 17 on.
bool UsesMore(const CamProgram& program, int sizes, int cams);

}  // namespace nira
