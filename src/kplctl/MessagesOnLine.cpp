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

/// Writes what stands in the work file; false, with the reason told, when that is not good.
bool WriteReceived(LineSession& session, const QString& file) {
  Console& console = session.Terminal();
  const QString work = MessageTransfer::WorkPath(session.Line());
  const MessagesReport report = CheckMessageFile(work);
  if (report.fault) {
    PrintFault(console.Err, work, *report.fault);
    console.Err << Printable(file) << ": NOT received: what came is damaged" << Qt::endl;
    return false;
  }
  CamProgram& program = session.Program;
  const int count = std::clamp(report.lines, 1, CamProgram::MaxMessages);
  program.SetLimits(program.NumSizes(), program.NumCams(), count);
  const auto received = ReadMsgFile(work, count);
  if (!received) return false;
  ReplaceMessages(program, *received);
  if (const Refusal refusal =
          WriteMsgFile(program, file, console.Writer, FileWriter::Backup::Yes)) {
    console.Err << Printable(file) << ": cannot be written: " << Printable(refusal->Text)
                << "; what came is kept in " << Printable(work) << Qt::endl;
    return false;
  }
  console.Out << Printable(file) << ": written: " << Counted(report.lines, "message") << ", "
              << report.texts << " with text" << Qt::endl;
  return true;
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
  Console& console = session.Terminal();
  if (!MayReplace(console, {}, file)) return Console::Failed;  // before minutes on the line
  WorkFile work(MessageTransfer::WorkPath(session.Line()));
  bool begun = false;
  const auto reason = session.Run(
      [&] { return MessageTransfer(session.Line()).Receive(work, MonitorOf(session, begun)); });
  if (reason) {
    console.Err << Printable(file) << ": NOT received: " << Printable(*reason) << Qt::endl;
    return Console::Failed;
  }
  return WriteReceived(session, file) ? Console::Good : Console::Failed;
}

}  // namespace nira
