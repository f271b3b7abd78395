// SPDX-License-Identifier: Apache-2.0
#include "line/MessageTransfer.h"

#include "ground/Text.h"
#include "line/FaultText.h"
#include "line/Identity.h"
#include "line/SerialLink.h"
#include "line/WorkFile.h"

#include <QFileInfo>

namespace nira {

namespace {

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// True when every record stands in the line of its number: one that came too late has moved those
/// behind it.
bool InPlace(std::string_view received) {
  LineReader lines(received);
  while (const auto line = lines.Next()) {
    const bool record = line->starts_with("N ");
    if (record && NumberInLine(line->substr(0, 5)) != lines.LineNumber()) return false;
  }
  return true;
}

/// Fills a work file; it is locked from then on.
Refusal Fill(WorkFile& work, std::string_view content) {
  if (Refusal refusal = work.Create()) return refusal;
  LineReader lines(content);
  while (const auto line = lines.Next()) {
    if (Refusal refusal = work.Add(*line)) return refusal;
  }
  return std::nullopt;
}

}  // namespace

QString MessageTransfer::WorkPath(const Comm& comm) {
  return comm.Folder.Find(QString::fromLatin1(MessageFile::WorkName));
}

TransferEnd MessageTransfer::Msg_Trans(const Choice& choose, const JobMonitor& showMonitor) {
  Job job{.JobCode = Job::SendMessages};
  const auto prepare = [&] {
    job.File = choose();
    const bool sendable = job.File.size() <= LongestPath && QFileInfo::exists(job.File);
    return sendable ? MaySend(job.File) : NoFile();
  };
  return RunJob(job, prepare, showMonitor);
}

TransferEnd MessageTransfer::Msg_Rec(const Choice& choose, const JobMonitor& showMonitor) {
  QString path;
  WorkFile work(WorkPath(comm_));
  Job job{.JobCode = Job::ReceiveMessages, .Into = &work};
  const auto prepare = [&] {
    const QString chosen = choose();
    path = MessageFileName(chosen);
    if (chosen.isEmpty() || path.size() > LongestPath || !MayReplace(path, chosen)) return NoFile();
    return IsOpenCamFile(comm_, path) ? TransferEnd::NoFile : TransferEnd::Done;
  };
  TransferEnd end = RunJob(job, prepare, showMonitor);
  if (end != TransferEnd::Done && end != TransferEnd::Incomplete) return end;
  const QByteArray received = work.Content();
  if (end == TransferEnd::Done) end = Replace(path, View(received));
  if (end == TransferEnd::Incomplete && !InPlace(View(received))) return end;
  const TransferEnd taken = Take(View(received), MergeMessages);
  return taken == TransferEnd::Done ? end : taken;
}

TransferEnd MessageTransfer::Tr_M(const JobMonitor& showMonitor) {
  WorkFile work(WorkPath(comm_));
  const Refusal refusal = Fill(work, WriteMessageLines(comm_.Program));
  return refusal ? TellFault(comm_, *refusal) : Transmit(work.Path(), showMonitor);
}

TransferEnd MessageTransfer::Rc_M(const JobMonitor& showMonitor) {
  WorkFile work(WorkPath(comm_));
  const TransferEnd end = Receive(work, showMonitor);
  if (end != TransferEnd::Done && end != TransferEnd::Incomplete) return end;
  const QByteArray received = work.Content();
  if (end == TransferEnd::Incomplete && !InPlace(View(received))) return end;
  const TransferEnd taken = Take(View(received), ReplaceMessages);
  return taken == TransferEnd::Done ? end : taken;
}

TransferEnd MessageTransfer::Transmit(const QString& file, const JobMonitor& showMonitor) {
  if (const TransferEnd end = MaySend(file); end != TransferEnd::Done) return end;
  Job job{.JobCode = Job::SendMessages, .File = file};
  return RunJob(
      job, [] { return TransferEnd::Done; }, showMonitor);
}

TransferEnd MessageTransfer::Receive(WorkFile& into, const JobMonitor& showMonitor) {
  Job job{.JobCode = Job::ReceiveMessages, .Into = &into};
  return RunJob(
      job, [] { return TransferEnd::Done; }, showMonitor);
}

/// The exchange around a job; the port is closed afterwards.
TransferEnd MessageTransfer::RunJob(Job& job, const Preparation& prepare,
                                    const JobMonitor& showMonitor) {
  const CommLock lock(comm_);
  if (!lock.Taken()) return TransferEnd::Busy;
  const auto identity = AskBeforeMessages(comm_);
  if (!identity) {
    return comm_.Settings.PortErrorFlag == 0 ? TransferEnd::TimedOut : TransferEnd::PortError;
  }
  job.Item = *identity;
  TransferEnd end = prepare();
  if (end == TransferEnd::Done) end = showMonitor(job);
  const bool closed = SerialLink(comm_).ClosePort();
  return closed || end != TransferEnd::Done ? end : TransferEnd::PortError;
}

/// Asks before what is seldom meant goes out. A file that the job refuses is left to it.
TransferEnd MessageTransfer::MaySend(const QString& path) {
  LineReader lines(path);
  const MessagesToSend found = LookThrough(lines);
  if (!found.Sendable) return TransferEnd::Done;
  QString question = comm_.Text(TextNumber::NoMessageText);
  if (!found.Control.isEmpty()) {
    question = comm_.Text(TextNumber::CharacterNotAllowed) + found.Control + u'\n' +
               comm_.Text(TextNumber::MessageNumber) + ZeroFilled(found.Number, 3);
  } else if (found.HasText) {
    return TransferEnd::Done;
  }
  return comm_.Ask.MsgBox(question + u'\n' + comm_.Text(TextNumber::SendAnyway), Buttons::NoYes,
                          Icon::Exclamation) == Answer::Yes
             ? TransferEnd::Done
             : TransferEnd::Cancelled;
}

TransferEnd MessageTransfer::NoFile() {
  comm_.Ask.MsgBox(comm_.Text(TextNumber::MessageFileNotFound), Buttons::Ok, Icon::Critical);
  return TransferEnd::NoFile;
}

/// The dialog has asked about the name that was chosen, but knows nothing of one with an extension
/// added.
bool MessageTransfer::MayReplace(const QString& path, const QString& chosen) {
  return path == chosen || !QFileInfo::exists(path) ||
         comm_.Ask.MsgBox(comm_.Text(TextNumber::ReplaceFile) + u'\n' + path, Buttons::NoYes,
                          Icon::Exclamation) == Answer::Yes;
}

/// Puts what was received in the place of the chosen file, which stays beside it.
TransferEnd MessageTransfer::Replace(const QString& path, std::string_view received) {
  Refusal refusal = comm_.Writer.Write(path, received, FileWriter::Backup::Yes);
  if (!refusal) return TransferEnd::Done;
  if (refusal->Text.isEmpty()) refusal->Text = comm_.Text(TextNumber::NoFile);
  refusal->Text += u'\n' + comm_.Text(TextNumber::ReceivedIn) + WorkPath(comm_);
  return TellFault(comm_, *refusal);
}

/// What was received differs from what the message editor opened or saved last.
TransferEnd MessageTransfer::Take(
    std::string_view received, const std::function<void(CamProgram&, const MessageFile&)>& take) {
  LineReader lines(received);
  const auto file = ReadMsgFile(lines, comm_.Program.NumMessages());
  if (!file) {
    Fault fault = file.Why();
    fault.Path = WorkPath(comm_);
    return TellFault(comm_, fault);
  }
  take(comm_.Program, *file);
  comm_.Settings.MsgSaved = false;
  return TransferEnd::Done;
}

bool IsOpenCamFile(Comm& comm, const QString& path) {
  if (QFileInfo(path) != QFileInfo(comm.Settings.CurrentFile)) return false;
  TellFault(comm, {.What = Fault::Kind::CannotWrite,
                   .Path = path,
                   .Text = comm.Text(TextNumber::IsOpenCamFile)});
  return true;
}

}  // namespace nira
