// SPDX-License-Identifier: Apache-2.0
#include "line/MessageTransfer.h"

#include "line/Identity.h"
#include "line/SerialLink.h"
#include "line/TransferFault.h"
#include "line/WorkFile.h"
#include "messages/MessageFile.h"

#include <QFileInfo>

#include <string_view>

namespace nira {

TransferEnd MessageTransfer::Msg_Trans(const Choice& choose, const JobMonitor& showMonitor) {
  const auto file = [&] { return Existing(choose()); };
  return RunJob(Job::SendMessages, file, showMonitor);
}

TransferEnd MessageTransfer::Msg_Rec(const Choice& choose, const JobMonitor& showMonitor) {
  QString path;
  const auto file = [&] { return path = Replaceable(choose()); };
  const TransferEnd end = RunJob(Job::ReceiveMessages, file, showMonitor);
  if (end != TransferEnd::Done) return end;
  return ReadBack(path) ? end : TransferEnd::BadFile;
}

TransferEnd MessageTransfer::Transmit(const QString& file, const JobMonitor& showMonitor) {
  return RunJob(
      Job::SendMessages, [&file] { return file; }, showMonitor);
}

TransferEnd MessageTransfer::Receive(const QString& file, const JobMonitor& showMonitor) {
  return RunJob(
      Job::ReceiveMessages, [&file] { return file; }, showMonitor);
}

/// The path when a file can be sent from it, otherwise none.
QString MessageTransfer::Existing(const QString& path) const {
  return path.size() <= LongestPath && QFileInfo::exists(path) ? path : QString();
}

/// The path under which a reception is kept. The dialog has asked about the name that was chosen,
/// but knows nothing of one with an extension added.
QString MessageTransfer::Replaceable(const QString& chosen) {
  if (chosen.isEmpty()) return {};
  const QString path = MessageFileName(chosen);
  if (path.size() > LongestPath) return {};
  const bool asked = path == chosen || !QFileInfo::exists(path);
  return asked || comm_.Ask.MsgBox(comm_.Text(TextNumber::ReplaceFile) + u'\n' + path,
                                   Buttons::YesNo, Icon::Exclamation) == Answer::Yes
             ? path
             : QString();
}

/// The exchange around a job; the port is closed afterwards.
TransferEnd MessageTransfer::RunJob(const char* code, const Choice& choose,
                                    const JobMonitor& showMonitor) {
  const CommLock lock(comm_);
  if (!lock.Taken()) return TransferEnd::Busy;
  const auto identity = AskBeforeMessages(comm_);
  if (!identity) return TransferEnd::PortError;
  TransferEnd end = TransferEnd::NoFile;
  const QString file = choose();
  if (file.isEmpty()) {
    comm_.Ask.MsgBox(comm_.Text(TextNumber::MessageFileNotFound), Buttons::Ok, Icon::Critical);
  } else {
    const bool receives = std::string_view(code) == Job::ReceiveMessages;
    WorkFile into(file);
    const Refusal refusal = receives ? KeepOld(file) : Refusal();
    end = refusal ? TellFault(comm_, *refusal) : showMonitor({code, file, &into, *identity});
  }
  const bool closed = SerialLink(comm_).ClosePort();
  return closed || end != TransferEnd::Done ? end : TransferEnd::PortError;
}

/// A file of the operator's that a reception replaces stays beside it.
Refusal MessageTransfer::KeepOld(const QString& path) const {
  if (path == comm_.Folder.Find(QString::fromLatin1(MessageFile::WorkName))) return std::nullopt;
  const QString reason = comm_.Writer.KeepOld(path);
  if (reason.isEmpty()) return std::nullopt;
  return Fault{.What = Fault::Kind::CannotWrite, .Path = path, .Text = reason};
}

/// What was received differs from what the message editor opened or saved last.
bool MessageTransfer::ReadBack(const QString& path) {
  const auto file = ReadMsgFile(path, comm_.Program.NumMessages());
  if (!file) {
    TellMessageFault(comm_, file.Why());
    return false;
  }
  MergeMessages(comm_.Program, *file);
  comm_.Settings.MsgSaved = false;
  return true;
}

void TellMessageFault(Comm& comm, const Fault& fault) {
  const auto tell = [&](const QString& text, Icon icon) {
    comm.Ask.MsgBox(text, Buttons::Ok, icon);
  };
  const auto withReason = [&](TextNumber what) -> QString {
    return comm.Text(what) + u'\n' + fault.Path + u'\n' + fault.Text;
  };
  switch (fault.What) {
    case Fault::Kind::Missing:
      return tell(comm.Text(TextNumber::MessageFileNotFound), Icon::Exclamation);
    case Fault::Kind::BadLine:
      return tell(fault.Path + comm.Text(TextNumber::BadFile), Icon::Exclamation);
    case Fault::Kind::CannotRead:
      return tell(withReason(TextNumber::CannotRead), Icon::Critical);
    default:
      return tell(withReason(TextNumber::CannotWrite), Icon::Critical);
  }
}

}  // namespace nira
