// SPDX-License-Identifier: Apache-2.0
#include "line/FaultText.h"

#include "files/MessageTable.h"
#include "files/TextNumbers.h"
#include "ground/Prompts.h"
#include "line/Comm.h"

namespace nira {

namespace {

/// A file that cannot be read or written, and why.
QString FileText(const QString& what, const Fault& fault, const MessageTable& texts) {
  return what + u'\n' + fault.Path + u'\n' +
         (fault.Text.isEmpty() ? texts.Text(TextNumber::NoFile) : fault.Text);
}

QString Counts(const Fault& fault, const QString& between) {
  return QString::number(fault.Found) + between + QString::number(fault.Expected);
}

Icon IconOf(Fault::Kind kind) {
  switch (kind) {
    case Fault::Kind::CannotRead:
    case Fault::Kind::CannotWrite:
    case Fault::Kind::InUse:
    case Fault::Kind::WrongCams:
      return Icon::Critical;
    case Fault::Kind::WrongDevice:
      return Icon::None;
    default:
      return Icon::Exclamation;
  }
}

}  // namespace

QString FaultText(const Fault& fault, const MessageTable& texts) {
  switch (fault.What) {
    case Fault::Kind::Missing:
      return texts.Text(TextNumber::FileNotFound) + fault.Path;
    case Fault::Kind::NoMessages:
      return texts.Text(TextNumber::MessageFileNotFound);
    case Fault::Kind::CannotRead:
      return FileText(texts.Text(TextNumber::CannotRead), fault, texts);
    case Fault::Kind::CannotWrite:
      return FileText(texts.Text(TextNumber::CannotWrite), fault, texts);
    case Fault::Kind::InUse:
      return texts.Text(TextNumber::WorkFileInUse) + u'\n' + fault.Path;
    case Fault::Kind::BadLine:
    case Fault::Kind::CutOff:
    case Fault::Kind::TooLarge:
      return (fault.Text.isEmpty() ? fault.Path : fault.Text) + texts.Text(TextNumber::BadFile);
    case Fault::Kind::WrongCams:
      return Counts(fault, QStringLiteral(" WRONG NUMBER OF CAMS "));
    case Fault::Kind::WrongDevice:
      return QStringLiteral("WRONG DSP  C.") + fault.Text;
    case Fault::Kind::OtherSizes:
      return Counts(fault, QStringLiteral(" BAD TOTAL FORMATS "));
    case Fault::Kind::NoSize:
      return QStringLiteral("File [") + fault.Path + u']' + texts.Text(TextNumber::BadFile);
    case Fault::Kind::Refused:
      break;
  }
  return fault.Text;
}

void TellFault(Prompts& prompts, const MessageTable& texts, const Fault& fault) {
  prompts.MsgBox(FaultText(fault, texts), Buttons::Ok, IconOf(fault.What));
}

TransferEnd TellFault(Comm& comm, const Fault& fault) {
  TellFault(comm.Ask, comm.Texts, fault);
  switch (fault.What) {
    case Fault::Kind::NoMessages:
    case Fault::Kind::CannotRead:
    case Fault::Kind::CannotWrite:
    case Fault::Kind::InUse:
      return TransferEnd::NoFile;
    case Fault::Kind::WrongDevice:
      return TransferEnd::NotIdentified;
    default:
      return TransferEnd::BadFile;
  }
}

}  // namespace nira
