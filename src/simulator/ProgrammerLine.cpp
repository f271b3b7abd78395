// SPDX-License-Identifier: Apache-2.0
#include "ProgrammerLine.h"

#include <algorithm>

namespace nira {

void ProgrammerLine::SetBaud(int baud) {
  toDevice_.SetBaud(baud);
  programmer_.SetBaud(baud);
}

std::optional<Instant> ProgrammerLine::NextEvent() const {
  const auto in = toDevice_.NextArrival();
  const auto out = programmer_.NextEvent();
  return in && out ? std::min(in, out) : in ? in : out;
}

std::string ProgrammerLine::RunUntil(Instant now) {
  std::string arrived;
  HoldForCts(now);
  for (auto next = NextEvent(); next && *next <= now; next = NextEvent()) {
    for (const char byte : toDevice_.Take(*next)) programmer_.Receive(byte, *next);
    arrived += programmer_.Run(*next);
    HoldForCts(*next);
  }
  return arrived;
}

void ProgrammerLine::HoldForCts(Instant now) {
  toDevice_.Hold(handshake_ && !programmer_.HoldsCts(), now);
}

}  // namespace nira
