// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"

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
  /// Runs the job of `JobCode`: shows the communication monitor, with the programmer's identity in
  /// its item line, until the job has ended. Returns the job's end.
  using Monitor = std::function<TransferEnd(const QString& item)>;

  explicit MessageTransfer(Comm& comm) : comm_(comm) {}

  /// Alarm message transmit.
  TransferEnd Msg_Trans(const Choice& choose, const Monitor& showMonitor);

  /// Alarm message receive: the messages that came replace those of the same number, the others
  /// stay.
  TransferEnd Msg_Rec(const Choice& choose, const Monitor& showMonitor);

  /// The exchange alone, with a file that is known, as the message editor does it with its work
  /// file.
  TransferEnd Transmit(const QString& file, const Monitor& showMonitor);
  TransferEnd Receive(const QString& file, const Monitor& showMonitor);

 private:
  TransferEnd RunJob(const char* code, const Choice& choose, const Monitor& showMonitor);
  QString Existing(const QString& path) const;
  QString Replaceable(const QString& chosen);
  bool ReadBack(const QString& path);

  Comm& comm_;
};

}  // namespace nira
