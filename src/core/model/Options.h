// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// The settings that survive from one run to the next.
struct Options {
  static constexpr const char* DefaultScript = "p32qx_IT.SCR";
  static constexpr int DefaultPort = 1;
  static constexpr int DefaultBaud = 9600;

  QString ScriptFile = QString::fromLatin1(DefaultScript);  ///< language script, name or path
  int PortNumber = DefaultPort;                             ///< serial port, from 1
  int BaudRate = DefaultBaud;                               ///< baud
};

}  // namespace nira
