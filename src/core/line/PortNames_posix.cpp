// SPDX-License-Identifier: Apache-2.0
#include "line/PortNames.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace nira {

namespace {

/// Devices of one kind in the order of their numbers: ttyUSB2 before ttyUSB10.
QStringList Numbered(const QDir& folder, const QString& kind) {
  QStringList names = folder.entryList({kind + u'*'}, QDir::Files | QDir::System);
  const auto number = [&kind](const QString& name) { return name.mid(kind.size()).toInt(); };
  std::sort(names.begin(), names.end(), [&number](const QString& a, const QString& b) {
    return number(a) != number(b) ? number(a) < number(b) : a < b;
  });
  return names;
}

}  // namespace

void PortNames::NameDevice(const QString& name) {
  const QFileInfo here(name);
  const bool path = name.contains(u'/') || here.exists() || here.isSymLink();
  named_ = path ? here.absoluteFilePath() : QString(devices_ + u'/' + name);
}

QStringList PortNames::Adapters() const {
  const QDir folder(devices_);
  return Numbered(folder, QStringLiteral("ttyUSB")) + Numbered(folder, QStringLiteral("ttyACM"));
}

QString PortNames::Device(int number) const {
  if (number < 0 || (number == 0 && named_.isEmpty())) return {};
  if (const QString linked = Linked(number); !linked.isEmpty()) return linked;
  if (number == 0) return named_;
  if (number <= FixedPorts) return devices_ + QStringLiteral("/ttyS%1").arg(number - 1);
  if (number > Ports) return {};
  const QStringList adapters = Adapters();
  const qsizetype index = number - FixedPorts - 1;
  return index < adapters.size() ? QString(devices_ + u'/' + adapters.at(index)) : QString();
}

/// Of a port that has no device: the adapters, of which it is the n-th, or a link.
QString PortNames::SoughtDevices(int number) const {
  if (number < 1 || number > Ports) return Link(number);
  return QStringLiteral("%1/ttyUSB*, %1/ttyACM* (N. %2)").arg(devices_).arg(number - FixedPorts);
}

QString PortNames::DeviceOf(const QSerialPortInfo& port) {
  return port.systemLocation();
}

bool PortNames::IsPermitted(const PortInfo& port) {
  const QFileInfo file(port.Device);
  return file.isReadable() && file.isWritable();
}

}  // namespace nira
