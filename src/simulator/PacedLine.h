// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Instant.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// One direction of a serial line: a byte arrives when its start bit, 8 data bits and stop bit have
/// gone out after those of the bytes before it.
class PacedLine {
 public:
  static constexpr int BitsPerByte = 10;
  static constexpr int DefaultBaud = 9600;

  /// Bits a second, above 0; counts for the bytes that have not arrived.
  void SetBaud(int baud);
  int Baud() const { return baud_; }

  /// Puts bytes on the line, the first not before `earliest`.
  void Send(std::string_view bytes, Instant earliest);

  /// The next byte waits while it is held, as a sender does that has to wait for CTS.
  void Hold(bool held, Instant now);

  /// When the next byte arrives; none while the line is empty or held.
  std::optional<Instant> NextArrival() const;

  /// What has arrived up to `now`.
  std::string Take(Instant now);

  /// When the last byte that was taken arrived.
  Instant LastArrival() const { return free_; }

  /// When all that is on the line has arrived, held or not.
  Instant Drained() const { return drained_; }

  std::size_t Waiting() const { return waiting_.size(); }
  void Clear();

  /// Bytes that arrived, and how long the line was busy with them.
  std::int64_t Arrived() const { return arrived_; }
  Instant Busy() const { return busy_; }

 private:
  struct Byte {
    Instant earliest;
    char code;
  };

  Instant ByteTime() const;
  Instant ArrivalOf(const Byte& byte, Instant free) const;
  void PlanAnew();

  std::deque<Byte> waiting_;
  Instant free_{};     // the line has carried its last byte
  Instant drained_{};  // and will have carried all that waits
  int baud_ = DefaultBaud;
  bool held_ = false;
  std::int64_t arrived_ = 0;
  Instant busy_{};
};

}  // namespace nira
