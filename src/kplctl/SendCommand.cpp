// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "Printable.h"
#include "ProgramComparison.h"
#include "ProgramTransfer.h"
#include "line/SizeTransfer.h"
#include "line/TransferJobs.h"

#include <memory>

namespace nira {

namespace {

/// Prints the differences, as many as one can read.
void TellDifferences(Console& console, const QString& file, const ProgramComparison& comparison) {
  for (const QString& difference : comparison.Texts()) {
    console.Err << Printable(file) << ": " << Printable(difference) << '\n';
  }
  const qsizetype more = comparison.Count() - comparison.Texts().size();
  if (more > 0) console.Err << Printable(file) << ": and " << more << " more\n";
  console.Err << Printable(file) << ": sent, but the programmer's program is NOT the same: "
              << Counted(comparison.Count(), "difference") << Qt::endl;
}

/// Reads the program back and holds it against what was sent.
int VerifySent(LineSession& session, const QString& file) {
  Console& console = session.Terminal();
  const auto sent = std::make_unique<CamProgram>(session.Program);
  session.Program.TakeAsSaved();  // nobody has to be asked: the file holds it
  const auto reason = session.Run([&session] {
    return SizeTransfer(session.Line()).Rc_Siz([&session](const Job& job) {
      return TransferJobs(session.Line(), session.Report()).Run(job);
    });
  });
  if (reason) {
    console.Err << Printable(file) << ": sent, but NOT verified: " << Printable(*reason)
                << Qt::endl;
    return Console::Failed;
  }
  const ProgramComparison comparison(*sent, session.Program);
  if (comparison.Count() > 0) {
    TellDifferences(console, file, comparison);
    return Console::Failed;
  }
  console.Out << Printable(file) << ": read back: the same in every size, cam and degree\n";
  return Console::Good;
}

int RunSend(Console& console, const Arguments& arguments) {
  return OnLine(console, arguments,
                [&arguments](LineSession& session) { return SendProgram(session, arguments); });
}

}  // namespace

int SendProgram(LineSession& session, const Arguments& arguments) {
  Console& console = session.Terminal();
  const QString& file = arguments.Words.first();
  if (!OpenCamFile(console, file, {}, session.Program)) return Console::Failed;
  bool begun = false;
  SizeTransfer transfer(session.Line());
  const auto reason = session.Run([&session, &transfer, &begun] {
    return transfer.Tr_Siz([&session, &begun](const Job& job) {
      begun = true;
      return TransferJobs(session.Line(), session.Report()).Run(job);
    });
  });
  if (reason) {
    session.Remark(
        file, QStringLiteral("NOT sent: ") + *reason +
                  (begun ? QStringLiteral("; the programmer may hold a part of it") : QString()));
    return Console::Failed;
  }
  session.Remark(file, transfer.Remark());
  console.Out << Printable(file) << ": sent: " << Summary(session.Program) << Qt::endl;
  return arguments.Has("verify") ? VerifySent(session, file) : Console::Good;
}

Command SendCommand() {
  return {.name = "send",
          .synopsis = "FILE.cam [--verify] [--port N|DEVICE] [--baud N] [--trace FILE] [--yes]",
          .summary = "send a cam program to the programmer",
          .options = {{"verify", Option::Kind::Flag, "",
                       "read it back and compare functions, descriptions and every degree"},
                      PortOption,
                      BaudOption,
                      TraceOption},
          .run = RunSend,
          .fault = LineFault};
}

}  // namespace nira
