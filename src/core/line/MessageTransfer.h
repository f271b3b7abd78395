// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"
#include "line/Job.h"
#include "messages/MessageFile.h"

#include <QString>

#include <functional>
#include <string_view>

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
  /// stay. The chosen file is replaced when all of them came; the work file holds them anyway.
  TransferEnd Msg_Rec(const Choice& choose, const JobMonitor& showMonitor);

  /// The same two for the message editor, by way of the work file alone: sends the messages of the
  /// program, and puts the programmer's in place of all of them.
  TransferEnd Tr_M(const JobMonitor& showMonitor);
  TransferEnd Rc_M(const JobMonitor& showMonitor);

  /// The exchange alone. A transmission of no text at all, or of a text that would break its
  /// record, is asked about first.
  TransferEnd Transmit(const QString& file, const JobMonitor& showMonitor);
  TransferEnd Receive(WorkFile& into, const JobMonitor& showMonitor);

  /// Path of the file by way of which messages go over the line.
  static QString WorkPath(const Comm& comm);

 private:
  /// The last step before the monitor; `Done` lets the job begin.
  using Preparation = std::function<TransferEnd()>;

  TransferEnd RunJob(Job& job, const Preparation& prepare, const JobMonitor& showMonitor);
  TransferEnd MaySend(const QString& path);
  TransferEnd NoFile();
  TransferEnd Replace(const QString& path, std::string_view received);
  TransferEnd Take(std::string_view received,
                   const std::function<void(CamProgram&, const MessageFile&)>& take);
  bool MayReplace(const QString& path, const QString& chosen);

  Comm& comm_;
};

/// True, after a message, for the cam file that is open: messages never take its place.
bool IsOpenCamFile(Comm& comm, const QString& path);

}  // namespace nira
