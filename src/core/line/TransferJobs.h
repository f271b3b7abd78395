// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Job.h"
#include "line/TransferMeter.h"
#include "line/TransferReport.h"
#include "line/Wire.h"
#include "line/WorkFile.h"

#include <cstdint>
#include <vector>

namespace nira {

/// Runs the jobs of the communication monitor.
class TransferJobs {
 public:
  TransferJobs(Comm& comm, TransferReport& report)
      : comm_(comm), wire_(comm), report_(report), meter_(comm.Time, report) {}

  /// Runs a job from the opening of the port to its end; the caller closes the port. Everything
  /// that went wrong has been told. An unknown code does nothing.
  TransferEnd Run(const Job& job);

 private:
  TransferEnd Dispatch(const Job& job);
  TransferEnd RunSendSizes();
  TransferEnd RunReceiveSizes(WorkFile& file);
  TransferEnd RunSendMessages(const QString& path);
  TransferEnd RunReceiveMessages(WorkFile& file);

  void Expect(const std::vector<std::string>& functions);
  void SendRecord(std::string_view record);
  void SendSize(int size);
  bool SendMessageLine(std::string_view line);
  bool Write(const Refusal& refusal);
  TransferEnd TellMissing(const std::vector<int>& missing);
  TransferEnd Broken();
  void TellBadFile();
  void Item(TextNumber text, const QString& item);
  void Progress(std::int64_t part, std::int64_t whole);

  Comm& comm_;
  Wire wire_;
  TransferReport& report_;
  TransferMeter meter_;
  std::int64_t toSend_ = 0;  // bytes of all frames of a transmission of sizes
  std::int64_t sent_ = 0;
  TransferEnd end_ = TransferEnd::Done;
  int percent_ = 0;
};

}  // namespace nira
