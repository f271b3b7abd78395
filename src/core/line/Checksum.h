// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace nira {

/// Characters with a meaning on the line.
struct Codes {
  static constexpr char Stx = 2;  ///< begins a frame
  static constexpr char Etx = 3;  ///< ends its text; the checksum follows
  static constexpr char Ack = 6;
  static constexpr char Nak = 21;
};

/// Checksum character of a command: the sum of its codes, raised by 32 when below 32. A sum beyond
/// one byte raises `std::overflow_error`: commands are short.
char CommandChecksum(std::string_view command);

/// Checksum character of a frame that begins with STX: the codes after it up to and including the
/// first ETX by exclusive or, raised by 32 when below 32. What follows the ETX does not count.
char FrameChecksum(std::string_view frame);

}  // namespace nira
