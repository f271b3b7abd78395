// SPDX-License-Identifier: Apache-2.0
#include "SizeReception.h"

#include "line/SentFunctions.h"

#include <charconv>
#include <optional>

namespace nira {

namespace {

constexpr std::size_t mostFunctions = 64;  // records kept; more are no functions of any model

/// The number that two or three digits at a place stand for; none when they are no digits.
std::optional<int> DigitsAt(std::string_view record, std::size_t place, std::size_t count) {
  int value = 0;
  for (const char c : record.substr(std::min(place, record.size()), count)) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return record.size() < place + count ? std::nullopt : std::optional(value);
}

/// The size that a header "F01" to "F99" begins; none for another record.
std::optional<int> SizeOfHeader(std::string_view record) {
  return record.size() == 3 && record[0] == 'F' ? DigitsAt(record, 1, 2) : std::nullopt;
}

}  // namespace

bool SizeReception::TakeByte(char byte, Instant at) {
  using State = DeviceFrameReader::State;
  const State state = frames_.Take(byte, at);
  if (state == State::Outside) return false;
  if (state == State::Inside || !voice_.NextFrame()) return true;
  if (voice_.Acknowledge(state == State::Good, at)) TakeRecord(frames_.Record());
  return true;
}

void SizeReception::TakeRecord(const std::string& record) {
  if (const auto size = SizeOfHeader(record)) {
    BeginSize(*size);
  } else if (record == "END") {
    done_ = true;
  } else if (size_ == 0) {
    if (functions_.size() < mostFunctions) functions_.push_back(record);
  } else if (record[0] == 'C') {
    TakeCam(record);
  } else {
    TakePhase(record);
  }
}

/// A size arrives whole: what the programmer held of it goes, and with the first one its texts.
void SizeReception::BeginSize(int size) {
  if (size_ == 0) {
    if (const auto functions = FunctionsOf(functions_, state_.Cams())) {
      state_.Functions = *functions;
    }
  }
  size_ = size;
  cam_ = -1;
  state_.ClearSize(size);
  for (int cam = 0; size == 1 && cam < state_.Cams(); ++cam) state_.SetCamText(cam, {});
}

void SizeReception::TakeCam(std::string_view record) {
  const auto number = DigitsAt(record, 2, 2);
  if (!number) return;
  cam_ = *number - 1;
  const std::size_t quote = record.find(DeviceCode::Quote);
  if (quote == std::string_view::npos || quote + 1 == record.size()) return;
  state_.SetCamText(cam_, record.substr(quote + 1, record.size() - quote - 2));
}

/// " 350 010": the ON degree and the first OFF degree.
void SizeReception::TakePhase(std::string_view record) {
  constexpr std::size_t length = 8;
  const auto on = DigitsAt(record, 1, 3);
  const auto off = DigitsAt(record, 5, 3);
  if (record.size() == length && on && off) state_.SwitchOn(size_, cam_, *on, *off);
}

}  // namespace nira
