// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace nira {

/// Every pause and time-out of the line to the programmer, in milliseconds, with its reason.
struct Timings {
  // The protocol's own.
  static constexpr int AfterOpening = 10;  ///< the port settles before a query goes out
  static constexpr int LineReply = 2000;   ///< a whole reply line, counted from the query
  static constexpr int FrameReply = 3000;  ///< silence, in a frame or before its acknowledgement
  static constexpr int AfterCommand = 50;  ///< the programmer enters "?FW", "?FR" or "?AW"
  static constexpr int AfterReceiveMessages = 10;  ///< the same for "?AR"
  static constexpr int AfterSizeHeader = 10;       ///< the programmer turns to the next size
  static constexpr int BeforeEnd = 10;  ///< the programmer stores the last message of "?AW"
  static constexpr int AskAgain = 50;   ///< between a reply that is no identity and the next query
  static constexpr int FlashReply = 5000;  ///< of a firmware line, which the programmer burns first
  static constexpr int FlashEnd = 3000;    ///< the programmer starts anew with its new firmware

  // The platform's side of the line.
  static constexpr int Backlog = 250;  ///< output accepted ahead of the line: progress stays true
  static constexpr int OutputStall = 5000;  ///< output that does not move: as long as any reply
  static constexpr int LineFeed = 50;   ///< after the CR of a reply: a byte at 300 baud, an adapter
  static constexpr int Closing = 2000;  ///< granted to a close beyond the time on the line
};

}  // namespace nira
