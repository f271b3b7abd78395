// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"
#include "line/SerialControl.h"

#include <QSerialPort>

namespace nira {

/// The failures of a serial port, with what happened and what to do about it in the language of
/// the texts.
class PortErrors {
 public:
  explicit PortErrors(const MessageTable& texts) : texts_(texts) {}

  /// Why the device could not be opened: `error` and `reason` are what the opening gave, the system
  /// is asked once more. `sought` names the port and what is looked for there.
  SerialError Opening(const QString& device, const QString& sought,
                      QSerialPort::SerialPortError error, const QString& reason) const;

  /// Input or output failed for a reason that the system has words for.
  SerialError Failed(const QString& device, const QString& reason) const;

  /// The port is not there any more.
  SerialError Gone(const QString& device) const;

  /// What was written does not go out.
  SerialError NotTaken(const QString& device) const;

 private:
  SerialError Missing(const QString& sought) const;
  SerialError Forbidden(const QString& device) const;
  SerialError Busy(const QString& device) const;
  SerialError Error(int number, TextNumber what, const QString& device, const QString& todo) const;

  const MessageTable& texts_;
};

}  // namespace nira
