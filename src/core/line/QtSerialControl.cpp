// SPDX-License-Identifier: Apache-2.0
#include "line/QtSerialControl.h"

#include "ground/SystemClock.h"
#include "line/PortAccess.h"
#include "line/SimulatedMark.h"
#include "line/Timings.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <thread>

namespace nira {

namespace {

constexpr qint64 mostQueued = 512;  ///< bytes of output that wait in this program and in the system
constexpr int bitsPerByte = 10;     ///< start bit, 8 data bits, stop bit
constexpr std::int64_t perMs = 1000;

}  // namespace

QtSerialControl::QtSerialControl(const PortNames& names, const MessageTable& texts, Clock& clock)
    : names_(names), errors_(texts), clock_(clock) {
  QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                   [this](QSerialPort::SerialPortError error) { OnError(error); });
}

bool QtSerialControl::PortOpen() const {
  return port_.isOpen() || unsent_;
}

void QtSerialControl::PortOpen(bool open) {
  if (open == PortOpen()) return;
  if (open) {
    Open();
  } else {
    Close();
  }
}

void QtSerialControl::Open() {
  gone_ = false;
  input_.clear();
  device_ = names_.Device(number_);
  port_.setPortName(device_);
  opening_ = true;
  const bool opened = port_.open(QIODevice::ReadWrite);
  opening_ = false;
  if (!opened) {
    throw errors_.Opening(device_, names_.Sought(number_), port_.error(), port_.errorString());
  }
  lineFree_ = clock_.Now() * perMs;
  threshold_ = 1;
  port_.clear(QSerialPort::Input);
}

void QtSerialControl::Close() {
  const bool sent = WaitUntilSent();
  unsent_ = false;
  if (port_.isOpen()) {
    if (!sent) port_.clear(QSerialPort::Output);  // the system would wait for it once more
    port_.close();
  }
  input_.clear();
  if (sent) return;
  if (gone_) throw errors_.Gone(device_);
  throw errors_.NotTaken(device_);
}

/// A port that is gone reports it without end while it is open. What it had read already is kept.
void QtSerialControl::OnError(QSerialPort::SerialPortError error) {
  using enum QSerialPort::SerialPortError;
  const bool gone = error == ResourceError || error == ReadError || error == WriteError ||
                    error == DeviceNotFoundError;
  if (!gone || opening_ || !port_.isOpen()) return;
  gone_ = true;
  unsent_ = port_.bytesToWrite() > 0;
  input_ += port_.readAll();
  port_.close();
}

/// Raises an error when the port is not open; what was lost with it is told then.
void QtSerialControl::CheckPort() {
  if (port_.isOpen()) return;
  unsent_ = false;
  throw errors_.Gone(device_);
}

/// Raises the port's own reason when what was asked of it was not done.
void QtSerialControl::Require(bool done) {
  CheckPort();
  if (!done) throw errors_.Failed(device_, port_.errorString());
}

/// "9600,n,8,1": parity, data and stop bits are the same at every speed.
void QtSerialControl::Settings(const QString& settings) {
  CheckPort();
  const int baud = settings.section(u',', 0, 0).toInt();
  Require(port_.setBaudRate(baud) && port_.setParity(QSerialPort::NoParity) &&
          port_.setDataBits(QSerialPort::Data8) && port_.setStopBits(QSerialPort::OneStop));
  baud_ = baud;
  settings_ = settings;
}

void QtSerialControl::Handshaking(int handshake) {
  CheckPort();
  Require(port_.setFlowControl(handshake == HandshakeRts ? QSerialPort::HardwareControl
                                                         : QSerialPort::NoFlowControl));
}

bool QtSerialControl::CTSHolding() {
  CheckPort();
  port_.clearError();
  const QSerialPort::PinoutSignals lines = port_.pinoutSignals();
  CheckPort();
  const bool noModemLines = port_.error() != QSerialPort::NoError;
  port_.clearError();
  return noModemLines || lines.testFlag(QSerialPort::ClearToSendSignal);
}

/// Takes over what the port has, without waiting.
void QtSerialControl::Fetch() {
  if (!input_.isEmpty() || !port_.isOpen()) return;
  if (port_.bytesAvailable() == 0) {
    if (!SystemHasInput()) return;
    port_.waitForReadyRead(0);
    const LineClock::time_point earliest =
        came_ + port_.bytesAvailable() * std::chrono::microseconds(ByteTime());
    came_ = std::min(earliest, LineClock::now());
  }
  if (port_.isOpen()) input_ = port_.readAll();
}

int QtSerialControl::InBufferCount() {
  Fetch();
  if (input_.isEmpty()) CheckPort();
  return static_cast<int>(input_.size());
}

void QtSerialControl::DiscardInput() {
  CheckPort();
  input_.clear();
  Require(port_.clear(QSerialPort::Input));
}

void QtSerialControl::DiscardOutput() {
  CheckPort();
  Require(port_.clear(QSerialPort::Output));
  lineFree_ = std::min(lineFree_, clock_.Now() * perMs);
  heard_ = std::min(heard_, LineClock::now());
}

QByteArray QtSerialControl::Input() {
  Fetch();
  if (input_.isEmpty()) CheckPort();
  const qsizetype count =
      inputLen_ == AllInput ? input_.size() : std::min<qsizetype>(inputLen_, input_.size());
  const QByteArray bytes = input_.first(count);
  input_.remove(0, count);
  return bytes;
}

/// Lets the event loop handle what waits when it has not for a slice of time.
void QtSerialControl::Breathe(Yield yield) {
  if (clock_.Now() - breathed_ < Clock::Slice) return;
  ProcessEvents(yield);
  breathed_ = clock_.Now();
}

/// Microseconds that the line needs for a byte.
std::int64_t QtSerialControl::ByteTime() const {
  return perMs * perMs * bitsPerByte / std::max(baud_, 1);
}

/// A programmer's bytes come one by one; waking up for each costs more than all that is done with
/// them. The last one wanted cannot come before the line has had the time for it, since the far end
/// has heard what was sent or since the last byte that came.
void QtSerialControl::SleepBelowThreshold() const {
  constexpr std::chrono::microseconds wakingUp(200);
  constexpr std::chrono::milliseconds longest(Clock::Slice);
  if (threshold_ < 2) return;
  const LineClock::time_point come =
      std::max(heard_, came_) + threshold_ * std::chrono::microseconds(ByteTime());
  std::this_thread::sleep_until(std::min(come - wakingUp, LineClock::now() + longest));
}

bool QtSerialControl::WaitForInput(std::int64_t deadline, Yield yield) {
  while (true) {
    const bool waiting = InBufferCount() > 0;
    Breathe(yield);
    if (waiting) return true;
    const std::int64_t left = deadline - clock_.Now();
    if (left <= 0) return InBufferCount() > 0;
    SleepBelowThreshold();
    if (InBufferCount() > 0) return true;
    if (port_.waitForReadyRead(static_cast<int>(std::min<std::int64_t>(left, Clock::Slice)))) {
      came_ = LineClock::now();
    }
  }
}

void QtSerialControl::Output(const QByteArray& bytes) {
  CheckPort();
  Require(port_.write(bytes) == bytes.size());
  port_.flush();
  lineFree_ = std::max(lineFree_, clock_.Now() * perMs) + bytes.size() * ByteTime();
  heard_ =
      std::max(heard_, LineClock::now()) + bytes.size() * std::chrono::microseconds(ByteTime());
  WaitForRoom();
}

/// True while more than these bytes are queued, or the line needs more than this time for them.
bool QtSerialControl::StillToGo(qint64 bytes, int ms) const {
  return Queued() > bytes || lineFree_ / perMs - clock_.Now() > ms;
}

/// Goes on sending for a slice of time, at most until the line needs only so much more time.
void QtSerialControl::PushOutput(int ms) {
  if (port_.bytesToWrite() > 0) {
    port_.waitForBytesWritten(Clock::Slice);
  } else {
    const std::int64_t left = lineFree_ / perMs - clock_.Now() - ms;
    clock_.Pause(static_cast<int>(std::clamp<std::int64_t>(left, 1, Clock::Slice)),
                 Yield::Painting);
  }
  Breathe(Yield::Painting);
}

/// Waits until the output is close behind the line; raises an error when it does not move.
void QtSerialControl::WaitForRoom() {
  qint64 queued = Queued();
  std::int64_t deadline = clock_.Now() + Timings::OutputStall;
  while (StillToGo(mostQueued, Timings::Backlog)) {
    PushOutput(Timings::Backlog);
    CheckPort();
    const qint64 left = Queued();
    if (left < queued || left <= mostQueued) deadline = clock_.Now() + Timings::OutputStall;
    queued = left;
    if (clock_.Now() >= deadline) throw errors_.NotTaken(device_);
  }
  CheckPort();
}

/// Waits until all output has left the machine; false when some of it never will, or takes longer
/// than the line needs.
bool QtSerialControl::WaitUntilSent() {
  const std::int64_t deadline = std::max(clock_.Now(), lineFree_ / perMs) + Timings::Closing;
  while (port_.isOpen() && StillToGo(0, 0)) {
    if (clock_.Now() >= deadline) return false;
    PushOutput(0);
  }
  return !unsent_;
}

bool QtSerialControl::IsSimulated() const {
  return IsSimulatedPort(names_.Link(number_));
}

QString QtSerialControl::OtherHolder() const {
  return PortHolder(device_, QCoreApplication::applicationPid());
}

}  // namespace nira
