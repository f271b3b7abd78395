// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Faults.h"
#include "PacedLine.h"

#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// What a programmer says: every answer and every frame goes through here, is counted, and is
/// spoilt when a fault strikes its number.
class DeviceVoice {
 public:
  /// What waits to be sent is dropped beyond this, when nobody gives the line time to carry it.
  static constexpr std::size_t MaxWaiting = 65536;

  explicit DeviceVoice(Faults faults) : faults_(std::move(faults)) {}

  /// Begins a job, which is frame 0. False when the programmer is dead, and takes in nothing.
  bool BeginJob();

  /// Goes on to the next frame; false as above.
  bool NextFrame();

  /// The frame that arrived or was sent last, from 1 in each job.
  int Frame() const { return frame_.inJob; }

  /// Answers ACK to what is good, otherwise NAK; true when it is to be kept.
  bool Acknowledge(bool good, Instant at);

  /// Sends a line or the like.
  void Say(std::string_view bytes, Instant at);

  /// Sends a record in its frame; returns when all of it has gone out.
  Instant SayFrame(std::string_view record, Instant at);

  /// How many acknowledgements the programmer hears of one that arrives for its frame.
  int HeardAcks() const;

  /// The identity of another model that is asked for.
  const std::optional<Faults::Counts>& OtherModel() const { return faults_.OtherModel(); }

  bool HoldsCts() const { return !Has(Faults::Kind::NoCts); }
  bool IsUnplugged() const { return unplugged_; }

  /// Comes back from being unplugged, as one that has just been switched on.
  void PlugIn();

  PacedLine& Line() { return line_; }
  const PacedLine& Line() const { return line_; }

 private:
  bool Has(Faults::Kind kind) const { return faults_.Strikes(kind, frame_); }
  bool IsAlive();

  Faults faults_;
  FrameNumber frame_;
  PacedLine line_;
  bool unplugged_ = false;
};

}  // namespace nira
