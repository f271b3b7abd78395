// SPDX-License-Identifier: Apache-2.0
#include "PacedLine.h"

#include <algorithm>

namespace nira {

void PacedLine::SetBaud(int baud) {
  if (baud == baud_) return;
  baud_ = std::max(baud, 1);
  PlanAnew();
}

Instant PacedLine::ByteTime() const {
  return Instant(std::chrono::seconds(BitsPerByte)) / baud_;
}

Instant PacedLine::ArrivalOf(const Byte& byte, Instant free) const {
  return std::max(byte.earliest, free) + ByteTime();
}

void PacedLine::Send(std::string_view bytes, Instant earliest) {
  for (const char code : bytes) {
    waiting_.push_back({earliest, code});
    drained_ = ArrivalOf(waiting_.back(), drained_);
  }
}

void PacedLine::Clear() {
  waiting_.clear();
  drained_ = free_;
}

void PacedLine::PlanAnew() {
  drained_ = free_;
  for (const Byte& byte : waiting_) drained_ = ArrivalOf(byte, drained_);
}

void PacedLine::Hold(bool held, Instant now) {
  if (held_ == held) return;
  held_ = held;
  if (!held) free_ = std::max(free_, now);
  PlanAnew();
}

std::optional<Instant> PacedLine::NextArrival() const {
  if (held_ || waiting_.empty()) return std::nullopt;
  return ArrivalOf(waiting_.front(), free_);
}

std::string PacedLine::Take(Instant now) {
  std::string bytes;
  for (auto next = NextArrival(); next && *next <= now; next = NextArrival()) {
    bytes.push_back(waiting_.front().code);
    waiting_.pop_front();
    free_ = *next;
    busy_ += ByteTime();
    ++arrived_;
  }
  return bytes;
}

}  // namespace nira
