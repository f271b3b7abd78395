// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DeviceVoice.h"
#include "Exchange.h"
#include "ProgrammerState.h"

#include <string>
#include <vector>

namespace nira {

/// Takes alarm messages in, a line each, up to the line "END"; nothing is answered.
class MessageReception : public Exchange {
 public:
  MessageReception(ProgrammerState& state, DeviceVoice& voice) : state_(state), voice_(voice) {}

  void TakeLine(std::string_view line, Instant at) override;
  bool IsDone() const override { return done_; }

 private:
  ProgrammerState& state_;
  DeviceVoice& voice_;
  bool done_ = false;
};

/// The records by which a programmer hands out all of its messages.
std::vector<std::string> MessageRecords(const ProgrammerState& state);

}  // namespace nira
