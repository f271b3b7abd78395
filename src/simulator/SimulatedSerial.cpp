// SPDX-License-Identifier: Apache-2.0
#include "SimulatedSerial.h"

#include <algorithm>

namespace nira {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds closingTime(2000);

}  // namespace

std::int64_t SimulatedSerial::Now() const {
  return std::chrono::duration_cast<milliseconds>(now_).count();
}

Instant SimulatedSerial::LeastTime() const {
  return line_.ToDevice().Busy() + programmer_.Sent().Busy() + paused_;
}

void SimulatedSerial::Pause(int ms, Yield /*yield*/) {
  paused_ += milliseconds(ms);
  PassTo(now_ + milliseconds(ms));
}

void SimulatedSerial::PassTo(Instant time) {
  now_ = std::max(now_, time);
  Arrive();
}

/// Takes what the line has brought; beyond the buffer, and at a closed port, it is lost.
void SimulatedSerial::Arrive() {
  const QByteArray bytes = QByteArray::fromStdString(line_.RunUntil(now_));
  if (open_) input_ += bytes.left(std::max<qsizetype>(bufferSize_ - input_.size(), 0));
}

void SimulatedSerial::CheckOpen() const {
  if (!open_) throw SerialError(SerialError::NotOpen, QStringLiteral("the port is not open"));
  if (programmer_.IsUnplugged()) {
    throw SerialError(SerialError::InputOutput,
                      QStringLiteral("the simulated adapter has been pulled out"));
  }
}

void SimulatedSerial::InBufferSize(int bytes) {
  bufferSize_ = std::max(bytes, 1);
}

void SimulatedSerial::PortOpen(bool open) {
  Arrive();
  if (open && programmer_.IsUnplugged()) {
    throw SerialError(SerialError::NoSuchPort, QStringLiteral("no adapter is plugged in"));
  }
  if (open_ && !open) Drain();
  open_ = open;
  input_.clear();
}

void SimulatedSerial::Drain() {
  const Instant patience = line_.ToDevice().Drained() - now_;
  const Instant last = now_ + std::max(patience, Instant()) + closingTime;
  while (line_.Unsent() > 0 && !programmer_.IsUnplugged()) {
    const Instant next = line_.NextEvent().value_or(last);
    PassTo(std::min(next, last));
    if (next >= last) break;
  }
  line_.DiscardWritten();
}

void SimulatedSerial::Settings(const QString& settings) {
  bool good = false;
  const int baud = settings.section(u',', 0, 0).toInt(&good);
  if (!good || baud <= 0) {
    throw SerialError(SerialError::BadProperty,
                      QStringLiteral("no settings of a port: ") + settings);
  }
  Arrive();
  settings_ = settings;
  line_.SetBaud(baud);
}

void SimulatedSerial::Handshaking(int handshake) {
  line_.SetHandshake(handshake == HandshakeRts);
}

bool SimulatedSerial::CTSHolding() {
  Arrive();
  CheckOpen();
  return programmer_.HoldsCts();
}

int SimulatedSerial::InBufferCount() {
  Arrive();
  CheckOpen();
  return static_cast<int>(input_.size());
}

void SimulatedSerial::DiscardInput() {
  Arrive();
  input_.clear();
}

QByteArray SimulatedSerial::Input() {
  Arrive();
  CheckOpen();
  const qsizetype count = inputLen_ == AllInput ? input_.size() : inputLen_;
  const QByteArray bytes = input_.left(count);
  input_.remove(0, bytes.size());
  return bytes;
}

void SimulatedSerial::Output(const QByteArray& bytes) {
  Arrive();
  CheckOpen();
  line_.Write({bytes.constData(), static_cast<std::size_t>(bytes.size())}, now_);
}

bool SimulatedSerial::WaitForInput(std::int64_t deadline, Yield /*yield*/) {
  const Instant last = milliseconds(deadline);
  Arrive();
  while (true) {
    CheckOpen();
    if (!input_.isEmpty()) return true;
    if (now_ >= last) return false;
    PassTo(std::min(line_.NextEvent().value_or(last), last));
  }
}

}  // namespace nira
