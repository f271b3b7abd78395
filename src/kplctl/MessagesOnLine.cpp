// SPDX-License-Identifier: Apache-2.0
#include "MessagesOnLine.h"

#include "CamFileAccess.h"
#include "MessageCheck.h"
#include "Printable.h"
#include "line/MessageTransfer.h"
#include "line/TransferJobs.h"
#include "messages/MessageFile.h"

#include <QFileInfo>

#include <algorithm>

namespace nira {

namespace {

JobMonitor MonitorOf(LineSession& session) {
  return [&session](const Job& job) {
    return TransferJobs(session.Line(), session.Report()).Run(job);
  };
}

/// Writes what stands in the work file; false, with the reason told, when that is not good.
bool WriteReceived(LineSession& session, MessageFile& received, const QString& file) {
  Console& console = session.Terminal();
  const MessagesReport report = CheckMessageFile(received.WorkPath());
  if (report.fault) {
    PrintFault(console.Err, received.WorkPath(), *report.fault);
    console.Err << Printable(file) << ": NOT received: what came is damaged" << Qt::endl;
    return false;
  }
  CamProgram& program = session.Program;
  const int count = std::clamp(report.lines, 1, CamProgram::MaxMessages);
  program.SetLimits(program.NumSizes(), program.NumCams(), count);
  if (!received.ReadWorkFile()) return false;
  const QString reason =
      console.Writer.Write(file, WriteMessageLines(program), FileWriter::Backup::No);
  if (!reason.isEmpty()) {
    console.Err << Printable(file) << ": cannot be written: " << Printable(reason) << Qt::endl;
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
  const auto reason = session.Run([&session, path = QFileInfo(file).absoluteFilePath()] {
    return MessageTransfer(session.Line()).Transmit(path, MonitorOf(session));
  });
  if (reason) {
    console.Err << Printable(file) << ": NOT sent: " << Printable(*reason) << Qt::endl;
    return Console::Failed;
  }
  console.Out << Printable(file) << ": sent: " << Counted(report.lines, "message") << Qt::endl;
  return Console::Good;
}

int ReceiveMessages(LineSession& session, const QString& file) {
  Console& console = session.Terminal();
  if (!MayReplace(console, {}, file)) return Console::Failed;  // before minutes on the line
  const Comm& comm = session.Line();
  MessageFile received(session.Program, session.Settings, comm.Folder, comm.Ask, comm.Texts,
                       comm.Writer);
  const auto reason = session.Run([&session, path = received.WorkPath()] {
    return MessageTransfer(session.Line()).Receive(path, MonitorOf(session));
  });
  if (reason) {
    console.Err << Printable(file) << ": NOT received: " << Printable(*reason) << Qt::endl;
    return Console::Failed;
  }
  return WriteReceived(session, received, file) ? Console::Good : Console::Failed;
}

}  // namespace nira
