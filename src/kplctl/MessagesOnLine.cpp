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
#include <QSaveFile>
#include <QTemporaryDir>

#include <algorithm>

namespace nira {

namespace {

JobMonitor MonitorOf(LineSession& session, bool& begun) {
  return [&session, &begun](const Job& job) {
    begun = true;
    return TransferJobs(session.Line(), session.Report()).Run(job);
  };
}

/// Why a file could not be replaced by what will have come; empty when it could.
QString ObstacleAt(const QString& file) {
  const QFileInfo target(file);
  if (target.exists() && !target.isFile()) return QStringLiteral("is not a file");
  if (target.exists() && !target.isReadable()) return QStringLiteral("cannot be kept as .bak");
  QSaveFile probe(file);  // gone again without a commit
  return probe.open(QIODevice::WriteOnly) ? QString() : probe.errorString();
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
    return QStringLiteral("cannot be written: ") + refusal->Text;
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
  Console& console = session.Terminal();
  if (!MayReplace(console, {}, file)) return Console::Failed;  // before minutes on the line
  if (const QString obstacle = ObstacleAt(file); !obstacle.isEmpty()) {
    console.Err << Printable(file) << ": cannot be written: " << Printable(obstacle) << Qt::endl;
    return Console::Failed;
  }
  QTemporaryDir own;  // no other command's
  WorkFile work(own.filePath(QString::fromLatin1(MessageFile::WorkName)));
  bool begun = false;
  auto reason = session.Run(
      [&] { return MessageTransfer(session.Line()).Receive(work, MonitorOf(session, begun)); });
  reason = reason ? QString(QStringLiteral("NOT received: ") + *reason)
                  : WriteReceived(session, work.Path(), file);
  if (!reason) return Console::Good;
  const bool came = QFileInfo(work.Path()).size() > 0;
  own.setAutoRemove(!came);
  console.Err << Printable(file) << ": " << Printable(*reason);
  if (came) console.Err << "; what came is kept in " << Printable(work.Path());
  console.Err << Qt::endl;
  return Console::Failed;
}

}  // namespace nira
