// SPDX-License-Identifier: Apache-2.0
#include "DeviceFrame.h"

namespace nira {

namespace {

constexpr int firstPlainCode = 32;

/// A checksum is sent as a plain character, which no control character can be taken for.
char PlainCharacter(int sum) {
  const int low = sum & 0xFF;
  return static_cast<char>(low < firstPlainCode ? low + firstPlainCode : low);
}

char ExclusiveOr(char sum, char byte) {
  return static_cast<char>(sum ^ byte);
}

}  // namespace

char DeviceCommandSum(std::string_view command) {
  int sum = 0;
  for (const char c : command) sum += static_cast<unsigned char>(c);
  return PlainCharacter(sum);
}

std::string DeviceFrame(std::string_view record) {
  std::string frame = DeviceCode::Stx + std::string(record) + DeviceCode::Etx;
  char sum = 0;
  for (const char c : std::string_view(frame).substr(1)) sum = ExclusiveOr(sum, c);
  return frame + PlainCharacter(sum);
}

DeviceFrameReader::State DeviceFrameReader::Take(char byte, Instant at) {
  if (at - last_ > MaxGap) expected_ = Expected::Stx;
  last_ = at;
  if (expected_ == Expected::Checksum) {
    expected_ = Expected::Stx;
    return byte == PlainCharacter(sum_) ? State::Good : State::Bad;
  }
  if (byte == DeviceCode::Stx) {  // also in the middle of a frame that broke off
    Begin();
    return State::Inside;
  }
  return expected_ == Expected::Content ? Add(byte) : State::Outside;
}

void DeviceFrameReader::Begin() {
  record_.clear();
  sum_ = 0;
  expected_ = Expected::Content;
}

DeviceFrameReader::State DeviceFrameReader::Add(char byte) {
  sum_ = ExclusiveOr(sum_, byte);
  if (byte == DeviceCode::Etx) {
    expected_ = Expected::Checksum;
  } else if (record_.size() < MaxRecord) {
    record_.push_back(byte);
  }
  return State::Inside;
}

}  // namespace nira
