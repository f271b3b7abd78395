// SPDX-License-Identifier: Apache-2.0
#include "LinePort.h"

#include <algorithm>

namespace nira {

namespace {

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace

void LinePort::CheckInterrupt() const {
  if (interrupt_.HasCome()) throw Interrupted();
}

void LinePort::PortOpen(bool open) {
  if (open == port_.PortOpen()) return;
  if (!open) TraceUnread();
  port_.PortOpen(open);
  trace_.Remark(open ? QStringLiteral("opened ") + port_.DeviceName() : QStringLiteral("closed"));
  if (open) Opened();
}

void LinePort::Settings(const QString& settings) {
  port_.Settings(settings);
  trace_.Remark(settings);
}

/// Bytes that nobody will read were on the line all the same.
void LinePort::TraceUnread() {
  if (!trace_.IsOpen()) return;
  try {
    for (int left = port_.InBufferCount(); left > 0;) {
      const QByteArray bytes = port_.Input();
      if (bytes.isEmpty()) break;
      trace_.Bytes(LineTrace::Way::In, View(bytes));
      left -= static_cast<int>(bytes.size());
    }
  } catch (const SerialError&) {  // the operation that follows tells it
  }
}

void LinePort::DiscardInput() {
  TraceUnread();
  port_.DiscardInput();
}

QByteArray LinePort::Input() {
  CheckInterrupt();
  const QByteArray bytes = port_.Input();
  trace_.Bytes(LineTrace::Way::In, View(bytes));
  return bytes;
}

void LinePort::Output(const QByteArray& bytes) {
  CheckInterrupt();
  trace_.Bytes(LineTrace::Way::Out, View(bytes));
  port_.Output(bytes);
}

bool LinePort::WaitForInput(std::int64_t deadline, Yield yield) {
  while (true) {
    CheckInterrupt();
    const std::int64_t next = std::min(deadline, clock_.Now() + Patience);
    if (port_.WaitForInput(next, yield)) return true;
    if (next == deadline) return false;
  }
}

}  // namespace nira
