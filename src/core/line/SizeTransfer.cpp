// SPDX-License-Identifier: Apache-2.0
#include "line/SizeTransfer.h"

#include "line/Identity.h"
#include "line/SerialLink.h"
#include "line/SizeImport.h"
#include "line/TransferFault.h"
#include "line/WorkFile.h"

#include <QDir>

#include <memory>

namespace nira {

namespace {

bool UsesFunctionsAbove(const CamProgram& program, int cams) {
  const FunctionsBlock& f = program.Functions();
  const bool groups = f.DelayOn != 0 || f.Ratio17On != 0 || f.Ratio25On != 0;
  const bool lost = cams < program.NumCams() && program.NumCams() == FunctionsBlock::MaxCams;
  if (groups && lost) return true;
  for (int cam = cams; f.AdvanceOn != 0 && cam <= f.AdvanceLast; ++cam) {
    if (f.CamFunc[static_cast<std::size_t>(cam)] != 0) return true;
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
  return RunJob({Job::SendSizes}, showMonitor);
}

TransferEnd SizeTransfer::Rc_Siz(const JobMonitor& showMonitor) {
  if (!comm_.Busy && !comm_.Program.IsSaved &&
      comm_.Ask.MsgBox(comm_.Text(TextNumber::NotSaved), Buttons::OkCancel, Icon::Exclamation) !=
          Answer::Ok) {
    return TransferEnd::Cancelled;
  }
  WorkFile file(QDir(comm_.Folder.Path()).filePath(QString::fromLatin1(WorkFile::Sizes)));
  const TransferEnd end = RunJob({.JobCode = Job::ReceiveSizes, .Into = &file}, showMonitor);
  if (end != TransferEnd::Done) return end;
  const Refusal refusal = SizeImport(comm_.Program).Import(file.Content().toStdString());
  return refusal ? TellFault(comm_, *refusal) : end;
}

/// The exchange around a job; the port is closed afterwards.
TransferEnd SizeTransfer::RunJob(const Job& job, const JobMonitor& showMonitor) {
  const CommLock lock(comm_);
  if (!lock.Taken()) return TransferEnd::Busy;
  TransferEnd end = Prepare();
  if (end == TransferEnd::Done) {
    end = showMonitor(job);
  }
  const bool closed = SerialLink(comm_).ClosePort();
  return closed || end != TransferEnd::Done ? end : TransferEnd::PortError;
}

/// Opens the port, asks the programmer who it is and takes its limits over.
TransferEnd SizeTransfer::Prepare() {
  if (!SerialLink(comm_).OpenPort()) return TransferEnd::PortError;
  std::string reply;
  switch (AskIdentity(comm_, reply)) {
    case Identity::Accepted:
      return TakeLimits(reply);
    case Identity::Cancelled:
      return TransferEnd::Cancelled;
    case Identity::Rejected:
    case Identity::PortError:
      break;
  }
  return TransferEnd::PortError;
}

/// A programmer that is smaller than the program: the operator decides before anything is sent, and
/// Save must not put the cut program over the whole one.
TransferEnd SizeTransfer::TakeLimits(const std::string& reply) {
  const auto before = std::make_unique<CamProgram>(comm_.Program);
  const Identity identity = TakeIdentity(comm_, reply);
  const bool cut = UsesMore(*before, comm_.Program.NumSizes(), comm_.Program.NumCams());
  if (cut && identity == Identity::Accepted && !MayCut(*before)) {
    comm_.Program = *before;
    return TransferEnd::Cancelled;
  }
  if (cut) comm_.Settings.CurrentFile.clear();
  return identity == Identity::Accepted ? TransferEnd::Done : TransferEnd::NotIdentified;
}

bool SizeTransfer::MayCut(const CamProgram& before) {
  const auto model = [this](const CamProgram& program) -> QString {
    return QString::number(program.NumCams()) + u' ' + comm_.Text(TextNumber::StatusCams) +
           QStringLiteral(", ") + QString::number(program.NumSizes()) + u' ' +
           comm_.Text(TextNumber::StatusSizes);
  };
  return comm_.Ask.MsgBox(comm_.Text(TextNumber::CutByProgrammer) + u'\n' + model(before) +
                              QStringLiteral(" -> ") + model(comm_.Program),
                          Buttons::OkCancel, Icon::Exclamation) == Answer::Ok;
}

}  // namespace nira
