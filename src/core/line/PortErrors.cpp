// SPDX-License-Identifier: Apache-2.0
#include "line/PortErrors.h"

#include "files/TextNumbers.h"
#include "line/PortAccess.h"

namespace nira {

SerialError PortErrors::Error(int number, TextNumber what, const QString& device,
                              const QString& todo) const {
  return {number, texts_.Text(what) + device + u'\n' + todo};
}

SerialError PortErrors::Missing(const QString& sought) const {
  return Error(SerialError::NoSuchPort, TextNumber::CannotFindPort, sought,
               texts_.Text(TextNumber::ConnectAdapter));
}

SerialError PortErrors::Forbidden(const QString& device) const {
  const QString group = GroupToJoin(device);
  return Error(
      SerialError::NoPermission, TextNumber::PortForbidden, device,
      group.isEmpty()
          ? texts_.Text(TextNumber::AskForPermission)
          : QString(texts_.Text(TextNumber::JoinGroup)).replace(QStringLiteral("%1"), group));
}

SerialError PortErrors::Busy(const QString& device) const {
  const QString holder = PortHolder(device);
  const QString lock = holder.isEmpty() ? LeftLock(device) : QString();
  const QString named = holder.isEmpty() ? holder : QStringLiteral(": ") + holder;
  return Error(SerialError::InUse, TextNumber::PortInUse, device,
               lock.isEmpty() ? texts_.Text(TextNumber::CloseOther) + named
                              : texts_.Text(TextNumber::RemoveLock) + lock);
}

SerialError PortErrors::Failed(const QString& device, const QString& reason) const {
  return Error(SerialError::InputOutput, TextNumber::PortFailed, device,
               texts_.Text(TextNumber::CheckCable) + u'\n' + reason);
}

SerialError PortErrors::Gone(const QString& device) const {
  return Failed(device, texts_.Text(TextNumber::PortGone));
}

SerialError PortErrors::NotTaken(const QString& device) const {
  return Error(SerialError::InputOutput, TextNumber::NotTaken, device,
               texts_.Text(TextNumber::CheckCable));
}

}  // namespace nira
