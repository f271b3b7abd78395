// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"
#include "line/Identity.h"

#include <functional>

namespace nira {

/// Sends the whole program to the programmer and reads one back: what the menu and kplctl both do.
///
/// The program's limits become the programmer's; after both commands the display is to be rebuilt,
/// whatever their end, and `Undo` disabled after a `Done` reception.
class SizeTransfer {
 public:
  /// Runs the job of `JobCode`: shows the communication monitor until the job has ended, or runs
  /// `TransferJobs` at once. Returns the job's end.
  using Monitor = std::function<TransferEnd()>;

  explicit SizeTransfer(Comm& comm) : comm_(comm) {}

  /// Size transmit.
  TransferEnd Tr_Siz(const Monitor& showMonitor);

  /// Size receive: asks first when unsaved work would be replaced. Only a program that came whole
  /// replaces the present one.
  TransferEnd Rc_Siz(const Monitor& showMonitor);

 private:
  TransferEnd RunJob(const char* code, const Monitor& showMonitor);
  TransferEnd Prepare();
  TransferEnd TakeLimits(const std::string& reply);
  bool MayCut(const CamProgram& before);

  Comm& comm_;
};

/// True when the program uses a size above `sizes` or a cam above `cams`: a phase, a description,
/// an advance, or a delay or ratio of the groups from cam 17 on.
bool UsesMore(const CamProgram& program, int sizes, int cams);

}  // namespace nira
