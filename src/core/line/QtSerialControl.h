// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/PortErrors.h"
#include "line/PortNames.h"
#include "line/SerialControl.h"

#include <QSerialPort>

#include <chrono>

namespace nira {

/// A serial port of the machine.
///
/// What comes in is read ahead, at most twice the input buffer; what goes out is accepted as fast
/// as the line carries it. A port that is gone closes itself; the next operation that needs it
/// raises the error, and so does closing it when something written was not out yet.
class QtSerialControl : public SerialControl {
 public:
  QtSerialControl(const PortNames& names, const MessageTable& texts, Clock& clock);

  int CommPort() const override { return number_; }
  void CommPort(int number) override { number_ = number; }
  void InBufferSize(int bytes) override { port_.setReadBufferSize(bytes); }
  bool PortOpen() const override;
  void PortOpen(bool open) override;
  QString Settings() const override { return settings_; }
  void Settings(const QString& settings) override;
  void InputLen(int characters) override { inputLen_ = characters; }
  void RThreshold(int characters) override { threshold_ = characters; }
  void Handshaking(int handshake) override;
  bool CTSHolding() override;
  int InBufferCount() override;
  void DiscardInput() override;
  void DiscardOutput() override;
  QByteArray Input() override;
  void Output(const QByteArray& bytes) override;
  bool WaitForInput(std::int64_t deadline, Yield yield) override;

  QString DeviceName() const override { return device_; }
  bool IsSimulated() const override;
  QString OtherHolder() const override;

 private:
  using LineClock = std::chrono::steady_clock;

  void Open();
  void Close();
  void OnError(QSerialPort::SerialPortError error);
  /// False only when the system says that nothing waits: quicker to ask than to wait for no time.
  bool SystemHasInput() const;
  void Fetch();
  void CheckPort();
  void Require(bool done);
  void Breathe(Yield yield);
  std::int64_t ByteTime() const;
  void SleepBelowThreshold() const;
  /// Bytes of output that have not left the machine, as far as the system tells.
  qint64 Queued() const;
  bool StillToGo(qint64 bytes, int ms) const;
  void PushOutput(int ms);
  void WaitForRoom();
  bool WaitUntilSent();

  const PortNames& names_;
  PortErrors errors_;
  Clock& clock_;
  QSerialPort port_;
  int number_ = 1;
  int inputLen_ = AllInput;
  int threshold_ = 1;
  int baud_ = 9600;
  QString settings_;
  QString device_;
  bool opening_ = false;
  bool gone_ = false;          // the port closed itself
  bool unsent_ = false;        // and something written was lost with it
  QByteArray input_;           // read from the port, not yet by the caller
  std::int64_t lineFree_ = 0;  // when the line will have carried all output, clock in microseconds
  LineClock::time_point heard_;  // the same, as fine as sleeping needs it
  LineClock::time_point came_;   // when the last byte came, at the earliest
  std::int64_t breathed_ = 0;    // when events were handled last
};

}  // namespace nira
