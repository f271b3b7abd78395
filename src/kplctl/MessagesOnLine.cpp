// SPDX-License-Identifier: Apache-2.0
#include "MessagesOnLine.h"

#include "CamFileAccess.h"
#include "MessageCheck.h"
#include "Printable.h"
#include "line/MessageTransfer.h"
#include "line/TransferJobs.h"
#include "line/WorkFile.h"
#include "messages/MessageFile.h"

#include <QFileInfo>

#include <algorithm>

namespace nira {

namespace {

JobMonitor MonitorOf(LineSession& session, bool& begun) {
  return [&session, &begun](const Job& job) {
    begun = true;
    return TransferJobs(session.Line(), session.Report()).Run(job);
  };
}

/// Writes what stands in the work file; none when that was done, otherwise why it was not.
std::optional<QString> WriteReceived(LineSession& session, const QString& work,
                                     const QString& file) {
  Console& console = session.Terminal();
  const MessagesReport report = CheckMessageFile(work);
  if (report.fault) {
    PrintFault(console.Err, work, *report.fault);
    return QStringLiteral("NOT received: what came is damaged");
  }
  CamProgram& program = session.Program;
  const int count = std::clamp(report.lines, 1, CamProgram::MaxMessages);
  program.SetLimits(program.NumSizes(), program.NumCams(), count);
  const auto received = ReadMsgFile(work, count);
  if (!received) return QStringLiteral("NOT received: what came is damaged");
  ReplaceMessages(program, *received);
  if (const Refusal refusal =
          WriteMsgFile(program, file, console.Writer, FileWriter::Backup::Yes)) {
    return FaultWords(*refusal);
  }
  console.Out << Printable(file) << ": written: " << Counted(report.lines, "message") << ", "
              << report.texts << " with text" << Qt::endl;
  return std::nullopt;
}

}  // namespace

int SendMessages(LineSession& session, const QString& file) {
  Console& console = session.Terminal();
  const MessagesReport report = CheckMessageFile(file);
  if (report.fault) {
    PrintFault(console.Err, file, *report.fault);
    return Console::Failed;
  }
  bool begun = false;
  const auto reason = session.Run([&] {
    const QString path = QFileInfo(file).absoluteFilePath();
    return MessageTransfer(session.Line()).Transmit(path, MonitorOf(session, begun));
  });
  if (reason) {
    console.Err << Printable(file) << ": NOT sent: " << Printable(*reason)
                << (begun ? "; the programmer may hold a part of it" : "") << Qt::endl;
    return Console::Failed;
  }
  console.Out << Printable(file) << ": sent: " << Counted(report.lines, "message") << Qt::endl;
  return Console::Good;
}

int ReceiveMessages(LineSession& session, const QString& file) {
  // Before minutes on the line.
  if (!MayReplace(session.Terminal(), {}, file) || !session.CanWrite(file)) return Console::Failed;
  WorkFile work(MessageTransfer::WorkPath(session.Line()));
  bool begun = false;
  auto reason = session.Run(
      [&] { return MessageTransfer(session.Line()).Receive(work, MonitorOf(session, begun)); });
  reason = reason ? QString(QStringLiteral("NOT received: ") + *reason)
                  : WriteReceived(session, work.Path(), file);
  if (!reason) return Console::Good;
  session.Remark(file, *reason);
  if (QFileInfo(work.Path()).size() > 0) session.KeepReceived(file, MessageFile::WorkName);
  return Console::Failed;
}

}  // namespace nira
