// SPDX-License-Identifier: Apache-2.0
#include "line/TransferFault.h"

#include "line/FaultText.h"

namespace nira {

TransferEnd TellFault(Comm& comm, const Fault& fault) {
  switch (fault.What) {
    case Fault::Kind::CannotRead:
    case Fault::Kind::CannotWrite:
    case Fault::Kind::InUse:
      TellFault(comm.Ask, comm.Texts, fault);
      return TransferEnd::NoFile;
    case Fault::Kind::WrongCams:
      comm.Ask.MsgBox(QStringLiteral("WRONG DSP  C.") + fault.Text, Buttons::Ok, Icon::None);
      return TransferEnd::NotIdentified;
    default:
      TellFault(comm.Ask, comm.Texts, fault);
      return TransferEnd::BadFile;
  }
}

}  // namespace nira
