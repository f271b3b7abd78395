// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"

#include <functional>

namespace nira {

class WorkFile;

/// What the communication monitor has to do. The jobs: "?FW" sends the program, "?FR" receives one,
/// "?AW" sends a message file, "?AR" receives one.
struct Job {
  static constexpr const char* SendSizes = "?FW";
  static constexpr const char* ReceiveSizes = "?FR";
  static constexpr const char* SendMessages = "?AW";
  static constexpr const char* ReceiveMessages = "?AR";

  const char* JobCode = "";
  QString File = {};         ///< path of the message file that "?AW" sends
  WorkFile* Into = nullptr;  ///< what "?FR" and "?AR" fill, never null for them
  QString Item = {};         ///< what the item line shows until the job writes there
};

/// Shows the communication monitor until the job has ended, or runs `TransferJobs` at once; returns
/// the job's end.
using JobMonitor = std::function<TransferEnd(const Job&)>;

}  // namespace nira
