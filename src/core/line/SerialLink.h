// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"

#include <array>

namespace nira {

/// The speeds that a programmer knows, baud.
inline constexpr std::array LineSpeeds = {300, 600, 1200, 2400, 9600, 19200};

/// What the port is set to at a speed: "9600,n,8,1".
QString LineSettings(int baud);

/// Opens and closes the port of the settings, and tells the operator when the platform fails.
class SerialLink {
 public:
  static constexpr int InBufferSize = 4096;  ///< bytes

  explicit SerialLink(Comm& comm) : comm_(comm) {}

  /// Opens the port with `PortNumber` and `BaudRate`; an open one only takes the speed, RTS/CTS and
  /// the test of CTS anew. Sets `PortErrorFlag`; true when it is 0. A programmer that does not hold
  /// CTS closes the port again without a message.
  bool OpenPort();

  /// Closes the port if it is open, after what was written has gone out. False, after the message,
  /// when it could not go out.
  bool ClosePort();

  /// Shows the platform's error, takes its number into `PortErrorFlag` and closes the port.
  void Report(const SerialError& error);

  /// "COM3"; the device itself when it was named without a number.
  QString PortName() const;

 private:
  void Configure();

  Comm& comm_;
};

}  // namespace nira
