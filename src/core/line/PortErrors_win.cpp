// SPDX-License-Identifier: Apache-2.0
#include "line/PortErrors.h"

namespace nira {

SerialError PortErrors::Opening(const QString& device, const QString& sought,
                                QSerialPort::SerialPortError error, const QString& reason) const {
  if (device.isEmpty()) return Missing(sought);
  const bool denied = error == QSerialPort::PermissionError;
  if (denied) return Busy(device);
  return error == QSerialPort::DeviceNotFoundError ? Missing(sought) : Failed(device, reason);
}

}  // namespace nira
