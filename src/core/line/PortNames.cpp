// SPDX-License-Identifier: Apache-2.0
#include "line/PortNames.h"

#include "line/PortAccess.h"
#include "line/SimulatedMark.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSerialPortInfo>

#include <algorithm>

namespace nira {

namespace {

/// The path that a link or a small text file names; a device names itself.
QString PointedTo(const QFileInfo& info) {
  if (info.isSymLink()) {
    return info.exists() ? info.canonicalFilePath() : info.symLinkTarget();
  }
  if (!info.isFile()) return info.exists() && !info.isDir() ? info.absoluteFilePath() : QString();
  QFile file(info.filePath());
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QString path = QFile::decodeName(file.readLine(4096)).trimmed();
  if (path.isEmpty() || path.contains(QChar(u'\0'))) return {};  // no text file
  const QFileInfo target(info.dir(), path);
  return target.exists() ? target.canonicalFilePath() : target.absoluteFilePath();
}

bool IsPort(const QSerialPortInfo& port, const QString& device) {
  return port.systemLocation() == device || port.portName() == device;
}

bool Knows(const QList<QSerialPortInfo>& known, const QString& device) {
  return std::any_of(known.begin(), known.end(),
                     [&device](const QSerialPortInfo& port) { return IsPort(port, device); });
}

PortInfo WithHolder(PortInfo port) {
  if (port.Present) port.HeldBy = PortHolder(port.Device);
  return port;
}

}  // namespace

/// What the machine says of a device beyond its name.
PortInfo PortNames::InfoOf(int number, const QString& device, const QList<QSerialPortInfo>& known) {
  PortInfo info;
  info.Number = number;
  info.Device = device;
  for (const QSerialPortInfo& port : known) {
    if (!IsPort(port, device)) continue;
    info.Description = port.description();
    info.SerialNumber = port.serialNumber();
    info.Present = true;
  }
  info.Present = info.Present || QFileInfo::exists(device);
  info.Permitted = IsPermitted(info);
  return info;
}

QString PortNames::Link(int number) const {
  if (number == 0) return named_;
  return folder_.Find(QStringLiteral("com%1").arg(number));
}

QString PortNames::Linked(int number) const {
  const QFileInfo link(Link(number));
  const bool plain = link.isFile() && !link.isSymLink();
  return number == 0 && plain ? QString() : PointedTo(link);
}

QString PortNames::Sought(int number) const {
  const QString device = Device(number);
  const QString port = QStringLiteral("COM%1").arg(number);
  if (number == 0 || device == port) return device;
  return port + QStringLiteral(", ") + (device.isEmpty() ? SoughtDevices(number) : device);
}

PortInfo PortNames::Describe(int number) const {
  return WithHolder(Describe(number, QSerialPortInfo::availablePorts()));
}

PortInfo PortNames::Describe(int number, const QList<QSerialPortInfo>& known) const {
  PortInfo port = InfoOf(number, Device(number), known);
  port.Simulated = IsSimulatedPort(Link(number));
  return port;
}

// A ttyS is a file on every machine: without a link it counts when the system knows its port.
bool PortNames::IsReal(const PortInfo& port, const QList<QSerialPortInfo>& known) const {
  return port.Number > FixedPorts || !Linked(port.Number).isEmpty() || Knows(known, port.Device);
}

std::vector<PortInfo> PortNames::Offered() const {
  const QList<QSerialPortInfo> known = QSerialPortInfo::availablePorts();
  std::vector<PortInfo> ports;
  for (int number = 1; number <= Ports; ++number) {
    PortInfo port = Describe(number, known);
    port.Present = port.Present && (IsReal(port, known) || !port.Permitted);
    ports.push_back(port);
  }
  return ports;
}

std::vector<PortInfo> PortNames::All() const {
  const QList<QSerialPortInfo> known = QSerialPortInfo::availablePorts();
  std::vector<PortInfo> ports;
  const auto listed = [&ports](const QString& device) {
    return std::any_of(ports.begin(), ports.end(),
                       [&device](const PortInfo& port) { return port.Device == device; });
  };
  for (int number = 1; number <= Ports; ++number) {
    const PortInfo port = Describe(number, known);
    if (port.Present && IsReal(port, known)) ports.push_back(WithHolder(port));
  }
  for (const QSerialPortInfo& port : known) {
    const QString device = DeviceOf(port);
    if (!listed(device)) ports.push_back(WithHolder(InfoOf(0, device, known)));
  }
  return ports;
}

}  // namespace nira
