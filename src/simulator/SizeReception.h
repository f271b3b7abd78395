// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DeviceFrame.h"
#include "DeviceVoice.h"
#include "Exchange.h"
#include "ProgrammerState.h"

#include <string>
#include <string_view>
#include <vector>

namespace nira {

/// Takes a cam program in, frame by frame: the records of the functions, then for each size its
/// header and the lines of its cams, then "END". A frame with a wrong checksum is refused; a whole
/// one whose record says nothing is acknowledged and passed over, since asking for it again would
/// bring the same.
class SizeReception : public Exchange {
 public:
  SizeReception(ProgrammerState& state, DeviceVoice& voice) : state_(state), voice_(voice) {}

  bool TakeByte(char byte, Instant at) override;
  bool IsDone() const override { return done_; }

 private:
  void TakeRecord(const std::string& record);
  void BeginSize(int size);
  void TakeCam(std::string_view record);
  void TakePhase(std::string_view record);

  ProgrammerState& state_;
  DeviceVoice& voice_;
  DeviceFrameReader frames_;
  std::vector<std::string> functions_;  // records before the first size
  int size_ = 0;                        // from 1; 0 before the first
  int cam_ = -1;                        // from 0; -1 before the first of a size
  bool done_ = false;
};

}  // namespace nira
