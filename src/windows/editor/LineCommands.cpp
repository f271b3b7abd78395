// SPDX-License-Identifier: Apache-2.0
#include "editor/LineCommands.h"

#include "controls/InputHold.h"
#include "dialogs/clsCommonDialog.h"
#include "line/Identity.h"
#include "line/MessageTransfer.h"
#include "line/Monit_Com.h"
#include "line/SETCOMM.h"
#include "line/SerialLink.h"
#include "line/UpdFlsh.h"
#include "messages/LastMessageFile.h"

#include <QApplication>

namespace nira {

LineCommands::LineCommands(Instance& instance, const PortNames& ports, QWidget* window)
    : QObject(window), instance_(instance), ports_(ports), window_(window) {}

bool LineCommands::IdentifyAtStart() {
  if (!SerialLink(instance_).OpenPort()) return true;
  if (IdentityQuery(instance_) == Identity::Rejected) return false;
  SerialLink(instance_).ClosePort();
  return true;
}

void LineCommands::TryPort() {
  if (SerialLink(instance_).OpenPort()) SerialLink(instance_).ClosePort();
}

/// Says `done` when all went well.
TransferEnd LineCommands::Exchange(Moves what, TextNumber done,
                                   const std::function<TransferEnd()>& exchange) {
  if (instance_.Busy) return TransferEnd::Busy;
  Q_EMIT Began();
  Q_EMIT Note({});
  TransferEnd end = TransferEnd::Done;
  {
    const InputHold hold;
    end = exchange();
  }
  Q_EMIT Ended(what == Moves::ProgramIn && end == TransferEnd::Done);
  Q_EMIT Note(EndText(end, done));
  return end;
}

QString LineCommands::EndText(TransferEnd end, TextNumber done) const {
  switch (end) {
    case TransferEnd::Done:
      return instance_.Text(done);
    case TransferEnd::Incomplete:
      return instance_.Text(TextNumber::ReceivedInPart) + MessageTransfer::WorkPath(instance_);
    case TransferEnd::Cancelled:
      return instance_.Text(TextNumber::TransferCancelled);
    default:
      return instance_.Text(TextNumber::TransferFailed);
  }
}

TransferEnd LineCommands::ShowMonitor(const Job& job) {
  QWidget* above = QApplication::activeModalWidget();
  return Monit_Com(instance_, above != nullptr ? above : window_).Run(job);
}

void LineCommands::Tr_Siz_Click() {
  TransferSizes(Moves::ProgramOut, TextNumber::Transmitted, &SizeTransfer::Tr_Siz);
}

void LineCommands::Rc_Siz_Click() {
  TransferSizes(Moves::ProgramIn, TextNumber::Received, &SizeTransfer::Rc_Siz);
}

/// A remark of the transfer stands beside `done` until another command takes its place.
void LineCommands::TransferSizes(Moves what, TextNumber done,
                                 TransferEnd (SizeTransfer::*command)(const JobMonitor&)) {
  SizeTransfer transfer(instance_);
  const TransferEnd end = Exchange(what, done, [this, &transfer, command] {
    return (transfer.*command)([this](const Job& job) { return ShowMonitor(job); });
  });
  if (end != TransferEnd::Done) return;
  Q_EMIT Agreed(what == Moves::ProgramIn);
  if (transfer.Remark().isEmpty()) return;
  Q_EMIT Note(instance_.Text(done) + QStringLiteral("  ") + transfer.Remark());
}

void LineCommands::Msg_Trans_Click() {
  Exchange(Moves::Messages, TextNumber::Transmitted, [this] {
    return MessageTransfer(instance_).Msg_Trans(
        [this] { return ChooseMessages(TextNumber::TransmitMessagesTitle, false); },
        [this](const Job& job) { return ShowMonitor(job); });
  });
}

void LineCommands::Msg_Rec_Click() {
  Exchange(Moves::Messages, TextNumber::Received, [this] {
    return MessageTransfer(instance_).Msg_Rec(
        [this] { return ChooseMessages(TextNumber::ReceiveMessagesTitle, true); },
        [this](const Job& job) { return ShowMonitor(job); });
  });
}

void LineCommands::Upd_Flash_Click() {
  Exchange(Moves::Firmware, TextNumber::Transmitted,
           [this] { return nira::Upd_Flash_Click(instance_, instance_.Dialog, window_); });
}

void LineCommands::TransmitMessages() {
  Exchange(Moves::Messages, TextNumber::Transmitted, [this] {
    return MessageTransfer(instance_).Tr_M([this](const Job& job) { return ShowMonitor(job); });
  });
}

void LineCommands::ReceiveMessages() {
  Exchange(Moves::Messages, TextNumber::Received, [this] {
    return MessageTransfer(instance_).Rc_M([this](const Job& job) { return ShowMonitor(job); });
  });
}

/// Asks for a message file; empty when the operator cancelled.
QString LineCommands::ChooseMessages(TextNumber title, bool save) {
  const PlainPointer pointer;
  clsCommonDialog& dialog = instance_.Dialog;
  const QString& label = instance_.Text(TextNumber::AllFiles);
  dialog.DialogTitle = instance_.Text(title);
  dialog.Filter = label + QStringLiteral("(*.Msg)|*.msg|") + label + QStringLiteral("(*.*)|*.*");
  dialog.Flags = save ? clsCommonDialog::OverwritePrompt + clsCommonDialog::PathMustExist
                      : clsCommonDialog::FileMustExist;
  dialog.FileName = save ? QString() : LastMessageFile(instance_.User);
  const bool chosen = save ? dialog.ShowSave(window_) : dialog.ShowOpen(window_);
  if (!chosen) return {};
  if (!save) KeepMessageFile(instance_.User, dialog.FileName);
  return dialog.FileName;
}

void LineCommands::setcom_Click() {
  SETCOMM(instance_, ports_, window_).exec();
  Q_EMIT PortChosen();
}

}  // namespace nira
