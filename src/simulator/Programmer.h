// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DeviceVoice.h"
#include "Exchange.h"
#include "ProgrammerState.h"

#include <functional>
#include <memory>
#include <string>

namespace nira {

/// A cam programmer on the far end of a serial line, as the tool meets it: bytes go in with the
/// time at which they arrive, bytes come out when the line has carried them. It knows no clock; the
/// times that it is given never go back.
///
/// Commands are obeyed at any time but in the middle of a frame, and end the job before them. A
/// command with a wrong checksum gets no answer.
class Programmer {
 public:
  /// A job that ran to its end, or a question that was answered.
  struct Job {
    std::string command;  ///< "?M", "?FW", ...
    int frames = 0;
  };

  explicit Programmer(ProgrammerState state = ProgrammerState(), Faults faults = {})
      : State(std::move(state)), voice_(std::move(faults)) {}

  ProgrammerState State;
  std::function<void(const Job&)> Finished;  ///< called when a job has ended; may be empty

  /// Speed of its port.
  void SetBaud(int baud) { voice_.Line().SetBaud(baud); }

  /// A byte has arrived.
  void Receive(char byte, Instant at);

  /// When it does something by itself, or its next byte has gone out; none while it only listens.
  std::optional<Instant> NextEvent() const;

  /// Does what is due, and returns the bytes that have gone out up to `now`.
  std::string Run(Instant now);

  /// What it sent so far.
  const PacedLine& Sent() const { return voice_.Line(); }

  bool HoldsCts() const { return !IsUnplugged() && voice_.HoldsCts(); }
  bool IsUnplugged() const { return voice_.IsUnplugged(); }
  void PlugIn();

 private:
  struct Command;
  static const Command* CommandAtEnd(std::string_view line);

  void EndLine(Instant at);
  void Obey(const Command& command, Instant at);
  void Identify(Instant at);
  void ReportEnd();

  DeviceVoice voice_;
  std::unique_ptr<Exchange> exchange_;
  std::string command_;  // of the exchange; empty once its end is reported
  std::string line_;     // what arrived since the last CR, outside of frames
};

}  // namespace nira
