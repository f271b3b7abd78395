// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DeviceVoice.h"
#include "Exchange.h"

#include <string>
#include <vector>

namespace nira {

/// Sends records one after the other, each in a frame, and waits for the ACK of each.
class FrameSending : public Exchange {
 public:
  /// The tool acknowledges whatever arrives, so an ACK that stays out for so long, counted from the
  /// frame's last byte, is lost: the next frame follows. A repeat would stand in the tool's file
  /// twice. The tool waits longer than this for a frame.
  static constexpr Instant AckWait = std::chrono::seconds(2);

  /// After so many frames without an ACK nobody is there, and the job is given up.
  static constexpr int MaxUnheard = 3;

  FrameSending(std::vector<std::string> records, DeviceVoice& voice, Instant at);

  bool TakeByte(char byte, Instant at) override;
  std::optional<Instant> NextAction() const override { return giveUp_; }
  void Act(Instant at) override;
  bool IsDone() const override { return done_; }

 private:
  void SendNext(Instant at);

  std::vector<std::string> records_;
  DeviceVoice& voice_;
  std::size_t next_ = 0;
  std::optional<Instant> giveUp_;  // waiting for the ACK of the last frame; none when not waiting
  int unheard_ = 0;                // frames without an ACK, in a row
  bool done_ = false;
};

}  // namespace nira
