// SPDX-License-Identifier: Apache-2.0
#include "FrameSending.h"

#include "DeviceFrame.h"

#include <algorithm>

namespace nira {

FrameSending::FrameSending(std::vector<std::string> records, DeviceVoice& voice, Instant at)
    : records_(std::move(records)), voice_(voice) {
  SendNext(at);
}

void FrameSending::SendNext(Instant at) {
  giveUp_.reset();
  done_ = next_ == records_.size();
  if (done_ || !voice_.NextFrame()) return;
  giveUp_ = voice_.SayFrame(records_[next_++], at) + AckWait;
}

bool FrameSending::TakeByte(char byte, Instant at) {
  if (byte != DeviceCode::Ack) return false;
  // The second of two ACKs is taken for that of the next frame, which is on its way by then.
  for (int acks = voice_.HeardAcks(); acks > 0 && giveUp_; --acks) {
    unheard_ = 0;
    SendNext(at);
  }
  return true;
}

void FrameSending::Act(Instant at) {
  if (!giveUp_ || *giveUp_ > at) return;
  if (++unheard_ < MaxUnheard) {
    SendNext(at);
  } else {
    giveUp_.reset();
  }
}

}  // namespace nira
