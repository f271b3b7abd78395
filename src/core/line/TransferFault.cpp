// SPDX-License-Identifier: Apache-2.0
#include "line/TransferFault.h"

namespace nira {

namespace {

TransferEnd TellFile(Comm& comm, TextNumber what, const Fault& fault) {
  QString text = comm.Text(what) + u'\n' + fault.Path;
  if (!fault.Text.isEmpty()) text += u'\n' + fault.Text;
  comm.Ask.MsgBox(text, Buttons::Ok, Icon::Critical);
  return TransferEnd::NoFile;
}

}  // namespace

TransferEnd TellFault(Comm& comm, const Fault& fault) {
  switch (fault.What) {
    case Fault::Kind::CannotRead:
      return TellFile(comm, TextNumber::CannotRead, fault);
    case Fault::Kind::CannotWrite:
      return TellFile(comm, TextNumber::CannotWrite, fault);
    case Fault::Kind::InUse:
      return TellFile(comm, TextNumber::WorkFileInUse, fault);
    case Fault::Kind::WrongCams:
      comm.Ask.MsgBox(QStringLiteral("WRONG DSP  C.") + fault.Text, Buttons::Ok, Icon::None);
      return TransferEnd::NotIdentified;
    default:
      comm.Ask.MsgBox(fault.Text + comm.Text(TextNumber::BadFile), Buttons::Ok, Icon::Exclamation);
      return TransferEnd::BadFile;
  }
}

}  // namespace nira
