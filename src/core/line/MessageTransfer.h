// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"
#include "line/Job.h"

#include <QString>

#include <functional>

namespace nira {

/// Sends the messages of a file to the programmer and fills a file with the programmer's.
class MessageTransfer {
 public:
  /// Longest path that is taken, characters.
  static constexpr qsizetype LongestPath = 200;

  /// Path of the message file, asked of the operator once the programmer has answered; empty when
  /// there is none.
  using Choice = std::function<QString()>;

  explicit MessageTransfer(Comm& comm) : comm_(comm) {}

  /// Alarm message transmit.
  TransferEnd Msg_Trans(const Choice& choose, const JobMonitor& showMonitor);

  /// Alarm message receive: the messages that came replace those of the same number, the others
  /// stay.
  TransferEnd Msg_Rec(const Choice& choose, const JobMonitor& showMonitor);

  /// The exchange alone, with a file that is known, as the message editor does it with its work
  /// file.
  TransferEnd Transmit(const QString& file, const JobMonitor& showMonitor);
  TransferEnd Receive(const QString& file, const JobMonitor& showMonitor);

 private:
  TransferEnd RunJob(const char* code, const Choice& choose, const JobMonitor& showMonitor);
  Refusal KeepOld(const QString& path) const;
  QString Existing(const QString& path) const;
  QString Replaceable(const QString& chosen);
  bool ReadBack(const QString& path);

  Comm& comm_;
};

/// Tells the operator why a message file was not read or written.
void TellMessageFault(Comm& comm, const Fault& fault);

}  // namespace nira
