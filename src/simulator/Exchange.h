// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Instant.h"

#include <optional>
#include <string_view>

namespace nira {

/// The programmer's part in one job, from the command that begins it to the next command. A job
/// that has come to its end goes on answering: what is sent to it then is a repeat of its last
/// record, whose answer did not arrive.
class Exchange {
 public:
  virtual ~Exchange() = default;

  /// A byte that arrived; false when it is no byte of a frame or an acknowledgement, but one of a
  /// line.
  virtual bool TakeByte(char byte, Instant at);

  /// A line that arrived and is no command, without its CR.
  virtual void TakeLine(std::string_view line, Instant at);

  /// When the programmer goes on by itself; none while it waits for the tool.
  virtual std::optional<Instant> NextAction() const;
  virtual void Act(Instant at);

  /// True when the last record has come, or gone and been acknowledged.
  virtual bool IsDone() const = 0;
};

}  // namespace nira
