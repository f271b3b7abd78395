// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "Printable.h"
#include "ProgramEdit.h"
#include "ProgramTransfer.h"
#include "line/SizeTransfer.h"
#include "line/TransferJobs.h"

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
  const bool replaces = QFileInfo::exists(file);
  if (!MayReplace(console, {}, file)) return Console::Failed;  // before minutes on the line
  const auto reason = session.Run([&session] {
    return SizeTransfer(session.Line()).Rc_Siz([&session](const Job& job) {
      return TransferJobs(session.Line(), session.Report()).Run(job);
    });
  });
  if (reason) {
    console.Err << Printable(file) << ": NOT received: " << Printable(*reason) << Qt::endl;
    return Console::Failed;
  }
  const int status = SaveCamFile(console, replaces ? file : QString(), file, session.Program);
  if (status != Console::Good) return status;
  for (const QString& lost : NotKept(session.Program, ReadBack(session.Program))) {
    console.Err << Printable(file) << ": " << lost << '\n';
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
