// SPDX-License-Identifier: Apache-2.0
#include "line/SerialLink.h"

namespace nira {

QString LineSettings(int baud) {
  return QString::number(baud) + QStringLiteral(",n,8,1");
}

bool SerialLink::OpenPort() {
  try {
    // The operator may have chosen another port while this one was open.
    if (comm_.Port.PortOpen() && comm_.Port.CommPort() != comm_.Settings.PortNumber) {
      comm_.Port.PortOpen(false);
    }
    if (!comm_.Port.PortOpen()) {
      comm_.Port.CommPort(comm_.Settings.PortNumber);
      comm_.Port.InBufferSize(InBufferSize);
      comm_.Port.PortOpen(true);
    }
    Configure();
  } catch (const SerialError& error) {
    Report(error);
  }
  return comm_.Settings.PortErrorFlag == 0;
}

void SerialLink::Configure() {
  comm_.Port.Settings(LineSettings(comm_.Settings.BaudRate));
  comm_.Port.InputLen(SerialControl::AllInput);
  comm_.Port.Handshaking(SerialControl::HandshakeRts);
  const bool ready = comm_.Port.CTSHolding();
  if (!ready) comm_.Port.PortOpen(false);
  comm_.Settings.PortErrorFlag = ready ? 0 : 1;
}

bool SerialLink::ClosePort() {
  try {
    if (comm_.Port.PortOpen()) comm_.Port.PortOpen(false);
    return true;
  } catch (const SerialError& error) {
    Report(error);
    return false;
  }
}

void SerialLink::Report(const SerialError& error) {
  comm_.Settings.PortErrorFlag = error.Number;
  try {
    if (comm_.Port.PortOpen()) comm_.Port.PortOpen(false);
  } catch (const SerialError&) {  // one message is enough: this is the same failure
  }
  comm_.Ask.MsgBox(QStringLiteral("Errore ") + QString::number(error.Number) +
                       QStringLiteral(" generato da ") + error.Source + u'\r' + error.Description,
                   Buttons::Ok, Icon::Critical, QStringLiteral("Errore su ") + PortName());
}

QString SerialLink::PortName() const {
  const int number = comm_.Settings.PortNumber;
  return number > 0 ? QString(QStringLiteral("COM") + QString::number(number))
                    : comm_.Port.DeviceName();
}

}  // namespace nira
