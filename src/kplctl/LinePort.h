// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Interrupt.h"
#include "LineTrace.h"
#include "line/SerialControl.h"

#include <functional>

namespace nira {

/// Raised from whatever a command does on the line once the operator wants it to end. No error of
/// the port: it passes everything by that would tell one or go on.
struct Interrupted {};

/// A port as the commands of kplctl use it: what goes over it is traced, and Ctrl+C ends every wait
/// within `Patience`. Closing it is always possible.
class LinePort : public SerialControl {
 public:
  static constexpr int Patience = 100;  ///< milliseconds

  LinePort(SerialControl& port, const Clock& clock, LineTrace& trace, const Interrupt& interrupt)
      : port_(port), clock_(clock), trace_(trace), interrupt_(interrupt) {}

  std::function<void()> Opened = [] {};  ///< called each time the port has been opened

  int CommPort() const override { return port_.CommPort(); }
  void CommPort(int number) override { port_.CommPort(number); }
  void InBufferSize(int bytes) override { port_.InBufferSize(bytes); }
  bool PortOpen() const override { return port_.PortOpen(); }
  void PortOpen(bool open) override;
  QString Settings() const override { return port_.Settings(); }
  void Settings(const QString& settings) override;
  void InputLen(int characters) override { port_.InputLen(characters); }
  void RThreshold(int characters) override { port_.RThreshold(characters); }
  void Handshaking(int handshake) override { port_.Handshaking(handshake); }
  bool CTSHolding() override { return port_.CTSHolding(); }
  int InBufferCount() override { return port_.InBufferCount(); }
  void DiscardInput() override;
  void DiscardOutput() override { port_.DiscardOutput(); }
  QByteArray Input() override;
  void Output(const QByteArray& bytes) override;
  bool WaitForInput(std::int64_t deadline, Yield yield) override;
  QString DeviceName() const override { return port_.DeviceName(); }
  bool IsSimulated() const override { return port_.IsSimulated(); }
  QString OtherHolder() const override { return port_.OtherHolder(); }

 private:
  void CheckInterrupt() const;
  void TraceUnread();

  SerialControl& port_;
  const Clock& clock_;
  LineTrace& trace_;
  const Interrupt& interrupt_;
};

}  // namespace nira
