// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Programmer.h"

#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// A line with a programmer on its far end. The near end, which is the tool's port, writes to it
/// and lets time pass.
class ProgrammerLine {
 public:
  explicit ProgrammerLine(Programmer& programmer) : programmer_(programmer) {}

  /// Speed of the line and of the programmer's port, which keeps to it.
  void SetBaud(int baud);
  int Baud() const { return toDevice_.Baud(); }

  /// Whether what is written waits for CTS.
  void SetHandshake(bool on) { handshake_ = on; }

  void Write(std::string_view bytes, Instant now) { toDevice_.Send(bytes, now); }
  /// Drops what was written and has not left yet.
  void DiscardWritten() { toDevice_.Clear(); }
  std::size_t Unsent() const { return toDevice_.Waiting(); }

  /// When something happens next; none while both ends wait.
  std::optional<Instant> NextEvent() const;

  /// Lets happen what is due up to `now`, each thing at its time; returns the bytes that arrived.
  std::string RunUntil(Instant now);

  /// What arrived at the programmer.
  const PacedLine& ToDevice() const { return toDevice_; }

 private:
  void HoldForCts(Instant now);

  Programmer& programmer_;
  PacedLine toDevice_;
  bool handshake_ = false;
};

}  // namespace nira
