// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Clock.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <stdexcept>

namespace nira {

/// A failure of the serial platform. `Number` is in the platform's range, never 0 or 1.
class SerialError : public std::runtime_error {
 public:
  // The numbers of the platform that have a name here.
  static constexpr int NoPermission = 70;
  static constexpr int BadProperty = 380;
  static constexpr int NoSuchPort = 8002;
  static constexpr int InUse = 8005;
  static constexpr int NotOpen = 8018;
  static constexpr int InputOutput = 8020;

  SerialError(int number, const QString& description)
      : std::runtime_error(description.toStdString()), Number(number), Description(description) {}

  int Number;
  QString Source = QStringLiteral("MsComm1");
  QString Description;  ///< what happened and what to do next
};

/// The serial control: one port of 8 data bits. Everything that fails raises `SerialError`; a port
/// that is gone (its adapter pulled out) raises it from whichever operation meets it first.
class SerialControl {
 public:
  static constexpr int HandshakeNone = 0;
  static constexpr int HandshakeRts = 2;  ///< RTS/CTS
  static constexpr int AllInput = 0;      ///< of `InputLen`: a read returns everything waiting
  static constexpr int OneCharacter = 1;

  virtual ~SerialControl() = default;

  /// Number of the port, from 1; chosen before opening.
  virtual int CommPort() const = 0;
  virtual void CommPort(int number) = 0;
  /// Bytes that the input buffer holds.
  virtual void InBufferSize(int bytes) = 0;
  virtual bool PortOpen() const = 0;
  /// Opens with an empty input buffer, or closes after what was written has gone out.
  virtual void PortOpen(bool open) = 0;
  /// "9600,n,8,1"
  virtual QString Settings() const = 0;
  virtual void Settings(const QString& settings) = 0;
  virtual void InputLen(int characters) = 0;
  /// Fewer characters than these are of no use to the caller yet: a wait may spend the time that
  /// the line needs for them asleep. 1 after opening.
  virtual void RThreshold(int /*characters*/) {}
  virtual void Handshaking(int handshake) = 0;
  /// The CTS line; a device without modem lines counts as holding it.
  virtual bool CTSHolding() = 0;
  /// Bytes waiting to be read.
  virtual int InBufferCount() = 0;
  virtual void DiscardInput() = 0;   ///< `InBufferCount` = 0
  virtual void DiscardOutput() = 0;  ///< `OutBufferCount` = 0
  virtual QByteArray Input() = 0;
  virtual void Output(const QByteArray& bytes) = 0;

  /// Waits until something can be read or the clock has reached `deadline` (milliseconds of the
  /// link's clock); costs no processor time. True when something waits.
  virtual bool WaitForInput(std::int64_t deadline, Yield yield) = 0;

  /// What the port is, for the operator: the device, and whether it is a simulated programmer.
  virtual QString DeviceName() const { return {}; }
  virtual bool IsSimulated() const { return false; }
  /// Another program that has the port open beside this one and takes what comes; empty when none
  /// is known.
  virtual QString OtherHolder() const { return {}; }
};

}  // namespace nira
