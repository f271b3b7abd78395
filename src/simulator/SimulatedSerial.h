// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ProgrammerLine.h"
#include "line/SerialControl.h"

#include <QByteArray>
#include <QString>

namespace nira {

/// A serial control with a simulated programmer on its port, whatever the port's number, and the
/// clock that goes with it. Time is virtual: it passes in pauses and waits alone, as much as the
/// line needs at the baud rate that `Settings` names.
class SimulatedSerial : public SerialControl, public Clock {
 public:
  explicit SimulatedSerial(Programmer& programmer) : programmer_(programmer), line_(programmer) {}

  std::int64_t Now() const override;
  void Pause(int ms, Yield yield) override;

  int CommPort() const override { return port_; }
  void CommPort(int number) override { port_ = number; }
  void InBufferSize(int bytes) override;
  bool PortOpen() const override { return open_; }
  /// Closing waits for what was written as long as its bytes need, and two seconds more.
  void PortOpen(bool open) override;
  QString Settings() const override { return settings_; }
  void Settings(const QString& settings) override;
  void InputLen(int characters) override { inputLen_ = characters; }
  void Handshaking(int handshake) override;
  bool CTSHolding() override;
  int InBufferCount() override;
  void DiscardInput() override;
  void DiscardOutput() override { line_.DiscardWritten(); }
  QByteArray Input() override;
  void Output(const QByteArray& bytes) override;
  bool WaitForInput(std::int64_t deadline, Yield yield) override;
  QString DeviceName() const override { return QStringLiteral("simulator"); }
  bool IsSimulated() const override { return true; }

  /// Bytes that arrived at the programmer, and at the port.
  std::int64_t BytesSent() const { return line_.ToDevice().Arrived(); }
  std::int64_t BytesReceived() const { return programmer_.Sent().Arrived(); }

  /// The least time that all of this can take: the line's own for every byte, and the pauses.
  Instant LeastTime() const;
  /// What it took.
  Instant Elapsed() const { return now_; }

 private:
  void CheckOpen() const;
  void Arrive();
  void PassTo(Instant time);
  void Drain();

  Programmer& programmer_;
  ProgrammerLine line_;
  Instant now_{};
  Instant paused_{};
  int port_ = 1;
  qsizetype bufferSize_ = 4096;
  bool open_ = false;
  QString settings_ = QStringLiteral("9600,n,8,1");
  int inputLen_ = AllInput;
  QByteArray input_;  // arrived and not yet read
};

}  // namespace nira
