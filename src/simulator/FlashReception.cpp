// SPDX-License-Identifier: Apache-2.0
#include "FlashReception.h"

namespace nira {

FlashReception::FlashReception(FirmwareImage& image, DeviceVoice& voice, Instant at)
    : image_(image), voice_(voice), started_(voice.Acknowledge(true, at)) {
  if (started_) image_.Clear();
}

void FlashReception::TakeLine(std::string_view line, Instant at) {
  if (!started_ || line.empty() || !voice_.NextFrame()) return;
  const auto record = HexRecord::Parse(line);
  if (voice_.Acknowledge(record.has_value(), at)) image_.Take(*record);
}

}  // namespace nira
