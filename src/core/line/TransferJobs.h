// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"
#include "line/TransferReport.h"
#include "line/Wire.h"
#include "line/WorkFile.h"

#include <cstdint>

namespace nira {

/// The four jobs of the communication monitor: "?FW" sends the program, "?FR" receives one into the
/// work file, "?AW" sends a message file, "?AR" receives one.
class TransferJobs {
 public:
  static constexpr const char* SendSizes = "?FW";
  static constexpr const char* ReceiveSizes = "?FR";
  static constexpr const char* SendMessages = "?AW";
  static constexpr const char* ReceiveMessages = "?AR";

  TransferJobs(Comm& comm, TransferReport& report) : comm_(comm), wire_(comm), report_(report) {}

  /// Runs the job `JobCode` from the opening of the port to its end; the caller closes the port.
  /// Everything that went wrong has been told. An unknown code does nothing.
  TransferEnd Run();

 private:
  TransferEnd Dispatch();
  TransferEnd RunSendSizes();
  TransferEnd RunReceiveSizes();
  TransferEnd RunSendMessages();
  TransferEnd RunReceiveMessages();

  void SendRecord(std::string_view record);
  void SendSize(int size);
  bool SendMessageLine(std::string_view line);
  bool CreateWorkFile(const QString& path);
  bool KeepOld(const QString& path);
  bool Write(std::string_view record);
  TransferEnd Broken();
  void TellFile(TextNumber what, const QString& path, const QString& reason);
  void TellBadFile();
  void Item(TextNumber text, const QString& item);
  void Progress(std::int64_t part, std::int64_t whole);
  QString JobPath() const;

  Comm& comm_;
  Wire wire_;
  TransferReport& report_;
  WorkFile file_;
  TransferEnd end_ = TransferEnd::Done;
  int percent_ = 0;
};

}  // namespace nira
