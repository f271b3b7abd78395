// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"
#include "line/FlashReport.h"
#include "line/HexFile.h"
#include "line/Wire.h"

#include <cstdint>

namespace nira {

/// Replaces the programmer's firmware by the content of a firmware file: tests all of the file,
/// asks, and sends it line by line.
class FlashUpdate {
 public:
  static constexpr const char* Command = ":FU";
  static constexpr int Baud = 19200;
  /// The programmer takes firmware at this speed, whatever the settings say.
  static constexpr const char* LineSettings = "19200,n,8,1";

  /// Opens the file at `path`; it stays open as long as this stands.
  FlashUpdate(Comm& comm, FlashReport& report, const QString& path);

  /// Runs the update to its end. Everything that went wrong has been told; the port is closed,
  /// except when another exchange goes on. `Done` when every line was acknowledged.
  TransferEnd Run();

  /// Reads the whole file and shows what it holds; touches no port.
  TransferEnd Test();

 private:
  TransferEnd Update();
  void OpenPort();
  bool WaitUntilReady();
  TransferEnd Start();
  TransferEnd Transfer();
  TransferEnd SendLines(bool withoutData);
  bool SendLine(const HexLine& line);
  char WaitFor(std::string_view replies);
  void ShowTested(int line);
  void ShowSent(const HexLine& line, int refused);
  void ShowFile();
  void Progress();
  TransferEnd TellFault(const HexLine& line);
  TransferEnd TellUnusable();
  TransferEnd TellUnreadable();
  TransferEnd TellTimeout();

  Comm& comm_;
  FlashReport& report_;
  QString path_;
  HexFile file_;
  HexTotals tested_;
  int sent_ = 0;                // lines that were acknowledged
  std::int64_t sentBytes_ = 0;  // their data bytes, and those of the line on its way
  int refused_ = -1;            // as told last
  int percent_ = 0;
};

}  // namespace nira
