// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DeviceVoice.h"
#include "Exchange.h"
#include "FirmwareImage.h"

namespace nira {

/// Takes a firmware in, one line of a HEX file after the other, and answers each. A line with a
/// wrong digit, count or checksum is refused.
class FlashReception : public Exchange {
 public:
  /// Answers the command; the image is begun anew unless the answer is NAK.
  FlashReception(FirmwareImage& image, DeviceVoice& voice, Instant at);

  void TakeLine(std::string_view line, Instant at) override;
  bool IsDone() const override { return started_ && image_.IsComplete(); }

 private:
  FirmwareImage& image_;
  DeviceVoice& voice_;
  bool started_;
};

}  // namespace nira
