// SPDX-License-Identifier: Apache-2.0
#include "line/SizeTransfer.h"

#include "line/FaultText.h"
#include "line/Identity.h"
#include "line/SerialLink.h"
#include "line/SizeImport.h"
#include "line/WireFunctions.h"
#include "line/WorkFile.h"
#include "model/FunctionRules.h"
#include "model/PhaseList.h"

#include <QDir>

#include <memory>

namespace nira {

namespace {

bool UsesFunctionsAbove(const CamProgram& program, int cams) {
  const FunctionsBlock& f = program.Functions();
  const bool groups = f.DelayOn != 0 || f.Ratio17On != 0 || f.Ratio25On != 0;
  const bool lost = cams < program.NumCams() && HasGroups(program.NumCams());
  if (groups && lost) return true;
  for (int cam = cams; f.AdvanceOn != 0 && cam <= program.LastAdvance(); ++cam) {
    if (f.CamFunc[static_cast<std::size_t>(cam)] != 0) return true;
  }
  return false;
}

/// True when the limits of `now` leave something out that `before` uses.
bool Hides(const CamProgram& now, const CamProgram& before) {
  return UsesMore(before, now.NumSizes(), now.NumCams());
}

/// True when there is a phase to send in any size.
bool HasPhases(const CamProgram& program) {
  for (int size = 1; size <= program.NumSizes(); ++size) {
    for (int cam = 0; cam < program.NumCams(); ++cam) {
      if (HasPhase(program.CamMap(size, cam))) return true;
    }
  }
  return false;
}

}  // namespace

bool UsesMore(const CamProgram& program, int sizes, int cams) {
  for (int cam = cams; cam < program.NumCams(); ++cam) {
    if (!program.CamText(cam).isEmpty()) return true;
  }
  for (int size = 1; size <= program.NumSizes(); ++size) {
    for (int cam = size > sizes ? 0 : cams; cam < program.NumCams(); ++cam) {
      if (program.CamMap(size, cam) != CamRow{}) return true;
    }
  }
  return UsesFunctionsAbove(program, cams);
}

TransferEnd SizeTransfer::Tr_Siz(const JobMonitor& showMonitor) {
  const CommLock lock(comm_);
  if (!lock.Taken()) return TransferEnd::Busy;
  if (!MaySendNothing()) return TransferEnd::Cancelled;
  const TransferEnd end = RunJob({Job::SendSizes}, showMonitor);
  Remark(TextNumber::SentOtherwise, ChangedOnTheLine(comm_.Program.Functions()));
  return end;
}

TransferEnd SizeTransfer::Rc_Siz(const JobMonitor& showMonitor) {
  const CommLock lock(comm_);
  if (!lock.Taken()) return TransferEnd::Busy;
  if (!MayReplace()) return TransferEnd::Cancelled;
  WorkFile file(QDir(comm_.Folder.Path()).filePath(QString::fromLatin1(WorkFile::Sizes)));
  const auto before = std::make_unique<CamProgram>(comm_.Program);
  bool accepted = false;
  TransferEnd end = RunJob({.JobCode = Job::ReceiveSizes, .Into = &file}, [&](const Job& job) {
    accepted = true;
    return showMonitor(job);
  });
  if (end == TransferEnd::Done) end = Import(file.Content().toStdString());
  if (end == TransferEnd::Done) {
    if (Hides(comm_.Program, *before)) comm_.Settings.CurrentFile.clear();
  } else if (accepted) {
    comm_.Program = *before;
  }
  return end;
}

/// Takes over what came; the fault is told.
TransferEnd SizeTransfer::Import(std::string_view received) {
  SizeImport import(comm_.Program);
  if (const Refusal refusal = import.Import(received)) return TellFault(comm_, *refusal);
  Remark(TextNumber::ReceivedOutOfRange, import.Remarks());
  return TransferEnd::Done;
}

void SizeTransfer::Remark(TextNumber text, const QStringList& values) {
  if (!values.isEmpty()) remark_ = comm_.Text(text) + values.join(QStringLiteral(", "));
}

bool SizeTransfer::MayReplace() {
  return !comm_.Program.HasUnsavedWork() ||
         comm_.Ask.MsgBox(comm_.Text(TextNumber::NotSaved), Buttons::CancelOk, Icon::Exclamation) ==
             Answer::Ok;
}

bool SizeTransfer::MaySendNothing() {
  return HasPhases(comm_.Program) ||
         comm_.Ask.MsgBox(comm_.Text(TextNumber::NothingToSend), Buttons::NoYes,
                          Icon::Exclamation) == Answer::Yes;
}

/// The exchange around a job; the port is closed afterwards.
TransferEnd SizeTransfer::RunJob(const Job& job, const JobMonitor& showMonitor) {
  TransferEnd end = Prepare(job);
  if (end == TransferEnd::Done) end = showMonitor(job);
  const bool closed = SerialLink(comm_).ClosePort();
  return closed || end != TransferEnd::Done ? end : TransferEnd::PortError;
}

/// Opens the port, asks the programmer who it is and takes its limits over.
TransferEnd SizeTransfer::Prepare(const Job& job) {
  if (!SerialLink(comm_).OpenPort()) return TransferEnd::PortError;
  std::string reply;
  switch (AskIdentity(comm_, reply)) {
    case Identity::Accepted:
      return TakeLimits(job, reply);
    case Identity::Cancelled:
      return TransferEnd::Cancelled;
    case Identity::Rejected:
    case Identity::PortError:
      break;
  }
  return TransferEnd::PortError;
}

/// What a programmer says that is none of ours must not hide anything of the program. One that is
/// smaller than the program gets it after the operator's word, and Save must not put the cut
/// program over the whole one then.
TransferEnd SizeTransfer::TakeLimits(const Job& job, const std::string& reply) {
  const auto before = std::make_unique<CamProgram>(comm_.Program);
  const Identity identity = TakeIdentity(comm_, reply);
  const bool cut = Hides(comm_.Program, *before);
  if (identity != Identity::Accepted) {
    if (cut) comm_.Program = *before;
    return TransferEnd::NotIdentified;
  }
  if (job.Into != nullptr || !cut) return TransferEnd::Done;
  if (!MayCut(*before)) {
    comm_.Program = *before;
    return TransferEnd::Cancelled;
  }
  comm_.Settings.CurrentFile.clear();
  return TransferEnd::Done;
}

bool SizeTransfer::MayCut(const CamProgram& before) {
  const auto model = [this](const CamProgram& program) -> QString {
    return QString::number(program.NumCams()) + u' ' + comm_.Text(TextNumber::StatusCams) +
           QStringLiteral(", ") + QString::number(program.NumSizes()) + u' ' +
           comm_.Text(TextNumber::StatusSizes);
  };
  return comm_.Ask.MsgBox(comm_.Text(TextNumber::CutByProgrammer) + u'\n' + model(before) +
                              QStringLiteral(" -> ") + model(comm_.Program),
                          Buttons::CancelOk, Icon::Exclamation) == Answer::Ok;
}

}  // namespace nira
