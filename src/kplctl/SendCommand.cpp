// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "DifferenceWords.h"
#include "Printable.h"
#include "ProgramTransfer.h"
#include "line/SizeTransfer.h"
#include "line/Survival.h"
#include "line/TransferJobs.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace nira {

namespace {

constexpr std::size_t mostTold = 20;  // differences that one can read

/// What differs between the program that was sent and the one that was read back. Functions and
/// descriptions count as far as the line carries them, and descriptions of cams without a phase in
/// size 1 not at all: the programmer may keep old ones.
std::vector<Difference> Unexpected(const CamProgram& sent, const CamProgram& back) {
  CamProgram expected = ThroughLine(sent);
  for (int size = 1; size <= sent.NumSizes(); ++size) {
    for (int cam = 0; cam < sent.NumCams(); ++cam) {
      expected.SetRow(size, cam, sent.CamMap(size, cam));
    }
  }
  std::vector<Difference> differences = DifferencesOf(expected, back);
  std::erase_if(differences, [&sent](const Difference& found) {
    return found.kind == Difference::Kind::Description && found.cam < sent.NumCams() &&
           !HasPhase(sent.CamMap(1, found.cam));
  });
  return differences;
}

void TellDifferences(Console& console, const QString& file, const std::vector<Difference>& found) {
  for (std::size_t i = 0; i < std::min(found.size(), mostTold); ++i) {
    const QString words = DifferenceWords(found[i], QStringLiteral("in the file"),
                                          QStringLiteral("in the programmer"));
    console.Err << Printable(file) << ": " << Printable(words) << '\n';
  }
  if (found.size() > mostTold) {
    console.Err << Printable(file) << ": and " << found.size() - mostTold << " more\n";
  }
  console.Err << Printable(file) << ": sent, but the programmer's program is NOT the same: "
              << Counted(static_cast<qsizetype>(found.size()), "difference") << Qt::endl;
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
  const std::vector<Difference> found = Unexpected(*sent, session.Program);
  if (!found.empty()) {
    TellDifferences(console, file, found);
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
