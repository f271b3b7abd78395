// SPDX-License-Identifier: Apache-2.0
#include "line/PortNames.h"

namespace nira {

void PortNames::NameDevice(const QString& name) {
  named_ = name;
}

QString PortNames::Device(int number) const {
  if (number < 0 || (number == 0 && named_.isEmpty())) return {};
  if (number == 0) return named_;
  return QStringLiteral("COM%1").arg(number);
}

QString PortNames::SoughtDevices(int /*number*/) const {
  return {};
}

QString PortNames::DeviceOf(const QSerialPortInfo& port) {
  return port.portName();
}

bool PortNames::IsPermitted(const PortInfo& port) {
  return port.Present;
}

}  // namespace nira
