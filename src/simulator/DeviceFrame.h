// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Instant.h"

#include <string>
#include <string_view>

namespace nira {

/// The control characters of the line.
struct DeviceCode {
  static constexpr char Stx = 2;
  static constexpr char Etx = 3;
  static constexpr char Ack = 6;
  static constexpr char Lf = 10;
  static constexpr char Cr = 13;
  static constexpr char Nak = 21;
  static constexpr char Quote = 34;
};

/// The character that follows a command: the sum of its codes, never a control character.
char DeviceCommandSum(std::string_view command);

/// The record between STX and ETX, and the checksum character that follows.
std::string DeviceFrame(std::string_view record);

/// Reads the frames that arrive, byte by byte, in bounded memory: of a record that is longer than
/// any the protocol knows only the beginning is kept, though all of it is checked.
class DeviceFrameReader {
 public:
  static constexpr std::size_t MaxRecord = 4096;

  /// A frame whose next byte takes longer has been broken off, and what comes is no part of it.
  static constexpr Instant MaxGap = std::chrono::seconds(1);

  enum class State {
    Outside,  ///< the byte belongs to no frame
    Inside,
    Good,  ///< the frame is complete, `Record` is its content
    Bad,   ///< it is complete, with a wrong checksum
  };

  State Take(char byte, Instant at);
  const std::string& Record() const { return record_; }

 private:
  enum class Expected { Stx, Content, Checksum };

  void Begin();
  State Add(char byte);

  Expected expected_ = Expected::Stx;
  std::string record_;
  char sum_ = 0;  // exclusive or of what followed STX
  Instant last_{};
};

}  // namespace nira
