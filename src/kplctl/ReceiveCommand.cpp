// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "DifferenceWords.h"
#include "Printable.h"
#include "ProgramTransfer.h"
#include "line/SizeTransfer.h"
#include "line/TransferJobs.h"
#include "line/WorkFile.h"

#include <QFileInfo>

namespace nira {

namespace {

int RunReceive(Console& console, const Arguments& arguments) {
  return OnLine(console, arguments,
                [&arguments](LineSession& session) { return ReceiveProgram(session, arguments); });
}

}  // namespace

int ReceiveProgram(LineSession& session, const Arguments& arguments) {
  Console& console = session.Terminal();
  const QString& file = arguments.Words.first();
  // Before minutes on the line.
  const bool replaces = QFileInfo::exists(file);
  if (!MayReplace(console, {}, file) || !session.CanWrite(file)) return Console::Failed;
  SizeTransfer transfer(session.Line());
  const auto reason = session.Run([&session, &transfer] {
    return transfer.Rc_Siz([&session](const Job& job) {
      return TransferJobs(session.Line(), session.Report()).Run(job);
    });
  });
  if (reason) {
    session.Remark(file, QStringLiteral("NOT received: ") + *reason);
    return Console::Failed;
  }
  const int status = SaveCamFile(console, replaces ? file : QString(), file, session.Program);
  if (status != Console::Good) {
    session.KeepReceived(file, WorkFile::Sizes);
    return status;
  }
  session.Remark(file, transfer.Remark());
  for (const QString& lost : NotKeptInFile(session.Program)) {
    session.Remark(file, lost);
  }
  return Console::Good;
}

Command ReceiveCommand() {
  return {.name = "receive",
          .synopsis = "OUT.cam [--port N|DEVICE] [--baud N] [--trace FILE] [--yes]",
          .summary = "read the programmer's cam program and write it to a file",
          .options = {PortOption, BaudOption, TraceOption},
          .run = RunReceive,
          .fault = LineFault};
}

}  // namespace nira
