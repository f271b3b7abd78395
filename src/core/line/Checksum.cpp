// SPDX-License-Identifier: Apache-2.0
#include "line/Checksum.h"

#include <numeric>
#include <stdexcept>

namespace nira {

namespace {

char NoControlCharacter(unsigned sum) {
  return static_cast<char>(sum < 32 ? sum + 32 : sum);
}

unsigned Code(char c) {
  return static_cast<unsigned char>(c);
}

}  // namespace

char CommandChecksum(std::string_view command) {
  const unsigned sum = std::accumulate(command.begin(), command.end(), 0U,
                                       [](unsigned s, char c) { return s + Code(c); });
  if (sum > 255) throw std::overflow_error("a command that is too long for its checksum");
  return NoControlCharacter(sum);
}

char FrameChecksum(std::string_view frame) {
  unsigned sum = 0;
  for (const char c : frame.substr(frame.empty() ? 0 : 1)) {
    sum ^= Code(c);
    if (c == Codes::Etx) break;
  }
  return NoControlCharacter(sum);
}

}  // namespace nira
