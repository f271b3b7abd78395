// SPDX-License-Identifier: Apache-2.0
#include "line/PortErrors.h"

#include "line/PortHolder.h"

#include <QFileInfo>

namespace nira {

SerialError PortErrors::Error(int number, TextNumber what, const QString& device,
                              const QString& todo) const {
  return {number, texts_.Text(what) + device + u'\n' + todo};
}

SerialError PortErrors::Missing(const QString& device) const {
  return Error(NoSuchPort, TextNumber::CannotFindPort, device,
               texts_.Text(TextNumber::ConnectAdapter));
}

SerialError PortErrors::Forbidden(const QString& device) const {
  const QString group = QFileInfo(device).group();
  return Error(
      NoPermission, TextNumber::PortForbidden, device,
      texts_.Text(TextNumber::JoinGroup) + (group.isEmpty() ? QStringLiteral("dialout") : group));
}

SerialError PortErrors::Busy(const QString& device) const {
  return Error(InUse, TextNumber::PortInUse, device,
               texts_.Text(TextNumber::CloseOther) + PortHolder(device));
}

SerialError PortErrors::Failed(const QString& device, const QString& reason) const {
  return Error(InputOutput, TextNumber::PortFailed, device,
               texts_.Text(TextNumber::CheckCable) + u'\n' + reason);
}

SerialError PortErrors::NotTaken(const QString& device) const {
  return Error(InputOutput, TextNumber::NotTaken, device, texts_.Text(TextNumber::CheckCable));
}

}  // namespace nira
