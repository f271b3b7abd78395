// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/WorkingFolder.h"

#include <QList>
#include <QSerialPortInfo>
#include <QString>

#include <vector>

namespace nira {

/// A serial port as the machine has it.
struct PortInfo {
  int Number = 0;       ///< number by which it is chosen, from 1; 0 when it has none
  QString Device;       ///< "/dev/ttyUSB0", "COM3"; empty when there is nothing behind the number
  QString Description;  ///< of the adapter, where the system knows one
  QString SerialNumber;
  bool Present = false;    ///< there is such a device now
  bool Permitted = false;  ///< this user may read and write it
  bool Simulated = false;  ///< a simulated programmer is behind it
  QString HeldBy;          ///< the program that has it open, as far as the system tells
};

/// Which device stands behind a port number.
///
/// The working folder comes first: a link "com1", a device or a file of that name whose first line
/// is a path, is port 1. Otherwise ports 1 to 4 are ttyS0 to ttyS3, and 5 to 8 the first four that
/// exist of ttyUSB0.. and ttyACM0.., in that order; on Windows port n is COMn. Port 0 is a device
/// by its name, or a link to one: what stands in a file of that name is not looked at.
class PortNames {
 public:
  static constexpr int Ports = 8;       ///< that the settings window offers
  static constexpr int FixedPorts = 4;  ///< ttyS0 to ttyS3; adapters come after them

  /// `devices` is the folder of the devices.
  explicit PortNames(const WorkingFolder& folder, const QString& devices = QStringLiteral("/dev"))
      : folder_(folder), devices_(devices) {}

  /// Port 0 is the device of this name from now on: a path, or a name among the devices.
  void NameDevice(const QString& name);

  /// The device of a port, whether or not it exists; empty when there is none.
  QString Device(int number) const;

  /// The port and what is looked for there, for a message: "COM2, /dev/ttyS1".
  QString Sought(int number) const;

  /// The name that stands for a port in the working folder, whether or not there is one.
  QString Link(int number) const;

  /// The port with all that the system tells of it.
  PortInfo Describe(int number) const;

  /// Ports 1 to `Ports` for a choice, in their order; `HeldBy` is not looked up. A fixed port that
  /// the machine names without having it is not present, unless the user may not look.
  std::vector<PortInfo> Offered() const;

  /// The ports that the machine has now: those with a number in its order, then the others.
  std::vector<PortInfo> All() const;

 private:
  PortInfo Describe(int number, const QList<QSerialPortInfo>& known) const;
  static PortInfo InfoOf(int number, const QString& device, const QList<QSerialPortInfo>& known);
  static QString DeviceOf(const QSerialPortInfo& port);
  static bool IsPermitted(const PortInfo& port);
  bool IsReal(const PortInfo& port, const QList<QSerialPortInfo>& known) const;
  QString Linked(int number) const;
  QString SoughtDevices(int number) const;
  QStringList Adapters() const;

  const WorkingFolder& folder_;
  QString devices_;
  QString named_;  // port 0
};

}  // namespace nira
