// SPDX-License-Identifier: Apache-2.0
#include "DeviceVoice.h"

#include "DeviceFrame.h"

namespace nira {

namespace {

using Kind = Faults::Kind;

/// No control character of the protocol, and none that a text begins with.
constexpr std::string_view noise("\x00\xFF\x55", 3);

}  // namespace

bool DeviceVoice::BeginJob() {
  frame_.inJob = 0;
  ++frame_.overall;
  return IsAlive();
}

bool DeviceVoice::NextFrame() {
  ++frame_.inJob;
  ++frame_.overall;
  return IsAlive();
}

bool DeviceVoice::IsAlive() {
  if (Has(Kind::Unplug)) {
    unplugged_ = true;
    line_.Clear();
  }
  return !unplugged_ && !Has(Kind::NoAnswer);
}

void DeviceVoice::PlugIn() {
  unplugged_ = false;
  frame_.inJob = 0;
}

bool DeviceVoice::Acknowledge(bool good, Instant at) {
  const bool kept = good && !Has(Kind::Nak);
  std::string answer(1, kept ? DeviceCode::Ack : DeviceCode::Nak);
  if (kept && Has(Kind::DoubledAck)) answer += DeviceCode::Ack;
  if (!kept || !Has(Kind::LostAck)) Say(answer, at);
  return kept;
}

void DeviceVoice::Say(std::string_view bytes, Instant at) {
  if (line_.Waiting() + bytes.size() > MaxWaiting) return;
  const Instant begin = at + std::chrono::milliseconds(faults_.Delay(frame_));
  if (Has(Kind::Noise)) line_.Send(noise, begin);
  line_.Send(bytes, begin);
}

Instant DeviceVoice::SayFrame(std::string_view record, Instant at) {
  std::string frame = DeviceFrame(record);
  if (Has(Kind::BadChecksum)) frame.back() = static_cast<char>(frame.back() ^ 1);
  Say(frame, at);
  return line_.Drained();
}

int DeviceVoice::HeardAcks() const {
  if (Has(Kind::LostAck)) return 0;
  return Has(Kind::DoubledAck) ? 2 : 1;
}

}  // namespace nira
