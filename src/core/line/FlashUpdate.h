// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"
#include "line/FlashReport.h"
#include "line/HexFile.h"
#include "line/Wire.h"

#include <cstdint>
#include <string>

namespace nira {

/// Replaces the programmer's firmware by the content of a firmware file: tests all of the file,
/// asks, and sends what it has tested line by line. What happens to the file by then is nothing to
/// the programmer, whose old firmware is gone with the first line.
class FlashUpdate {
 public:
  static constexpr const char* Command = ":FU";
  /// The programmer takes firmware at this speed, whatever the settings say.
  static constexpr int Baud = 19200;

  /// Bytes of a file that can be kept from its test to its end: more than two hours of the
  /// line, and many times the memory of a programmer.
  static constexpr std::size_t MostText = 16U << 20U;

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
  bool SendLines(bool withData);
  bool SendLine(const HexLine& line);
  char WaitFor(std::string_view replies);
  void ShowTested(int line);
  void ShowSent(const HexLine& line, int refused);
  void ShowFile();
  void Progress();
  TransferEnd TellFault(const HexLine& line);
  TransferEnd TellTooLarge();
  TransferEnd TellUnusable();
  TransferEnd TellUnreadable();
  TransferEnd TellTimeout();

  Comm& comm_;
  FlashReport& report_;
  QString path_;
  HexFile file_;
  std::string lines_;           // as they were tested, each with the CR that ends it on the line
  int sent_ = 0;                // lines that were acknowledged
  std::int64_t sentBytes_ = 0;  // their data bytes, and those of the line on its way
  int refused_ = -1;            // as told last
  int percent_ = 0;
};

}  // namespace nira
