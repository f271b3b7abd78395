// SPDX-License-Identifier: Apache-2.0
#include "line/PortNames.h"

#include "line/PortHolder.h"
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

/// Devices of one kind in the order of their numbers: ttyUSB2 before ttyUSB10.
QStringList Numbered(const QDir& folder, const QString& kind) {
  QStringList names = folder.entryList({kind + u'*'}, QDir::Files | QDir::System);
  const auto number = [&kind](const QString& name) { return name.mid(kind.size()).toInt(); };
  std::sort(names.begin(), names.end(), [&number](const QString& a, const QString& b) {
    return number(a) != number(b) ? number(a) < number(b) : a < b;
  });
  return names;
}

bool IsPort(const QSerialPortInfo& port, const QString& device) {
  return port.systemLocation() == device || port.portName() == device;
}

bool Knows(const QList<QSerialPortInfo>& known, const QString& device) {
  return std::any_of(known.begin(), known.end(),
                     [&device](const QSerialPortInfo& port) { return IsPort(port, device); });
}

/// What the machine says of a device beyond its name.
PortInfo InfoOf(int number, const QString& device, const QList<QSerialPortInfo>& known) {
  PortInfo info;
  info.Number = number;
  info.Device = device;
  for (const QSerialPortInfo& port : known) {
    if (!IsPort(port, device)) continue;
    info.Description = port.description();
    info.SerialNumber = port.serialNumber();
    info.Present = true;
  }
  const QFileInfo file(device);
  info.Present = info.Present || file.exists();
#ifdef Q_OS_WIN
  info.Permitted = info.Present;
#else
  info.Permitted = file.isReadable() && file.isWritable();
#endif
  return info;
}

PortInfo WithHolder(PortInfo port) {
  if (port.Present) port.HeldBy = PortHolder(port.Device);
  return port;
}

}  // namespace

void PortNames::NameDevice(const QString& name) {
#ifdef Q_OS_WIN
  named_ = name;
#else
  const QFileInfo here(name);
  const bool path = name.contains(u'/') || here.exists() || here.isSymLink();
  named_ = path ? here.absoluteFilePath() : QString(devices_ + u'/' + name);
#endif
}

QString PortNames::Link(int number) const {
  if (number == 0) return named_;
  return folder_.Find(QStringLiteral("com%1").arg(number));
}

QString PortNames::Linked(int number) const {
  return PointedTo(QFileInfo(Link(number)));
}

QStringList PortNames::Adapters() const {
  const QDir folder(devices_);
  return Numbered(folder, QStringLiteral("ttyUSB")) + Numbered(folder, QStringLiteral("ttyACM"));
}

QString PortNames::Device(int number) const {
  if (number < 0 || (number == 0 && named_.isEmpty())) return {};
#ifdef Q_OS_WIN
  if (number == 0) return named_;
  return QStringLiteral("COM%1").arg(number);
#else
  if (const QString linked = Linked(number); !linked.isEmpty()) return linked;
  if (number == 0) return named_;
  if (number <= FixedPorts) return devices_ + QStringLiteral("/ttyS%1").arg(number - 1);
  if (number > Ports) return {};
  const QStringList adapters = Adapters();
  const qsizetype index = number - FixedPorts - 1;
  return index < adapters.size() ? QString(devices_ + u'/' + adapters.at(index)) : QString();
#endif
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
#ifdef Q_OS_WIN
    const QString device = port.portName();
#else
    const QString device = port.systemLocation();
#endif
    if (!listed(device)) ports.push_back(WithHolder(InfoOf(0, device, known)));
  }
  return ports;
}

}  // namespace nira
