// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"

#include <string>
#include <string_view>

namespace nira {

/// What came back from a query.
struct Reply {
  enum class End {
    Answered,
    NotOpened,  ///< the port did not open; `SerialLink` told why
    NoAnswer,   ///< told, port closed; `Said` is the operator's button
  };
  End Ended = End::NoAnswer;
  std::string Text;  ///< the line, blanks around it removed, its CR (and LF) still at its end
  Answer Said = Answer::Ok;
};

/// What a programmer answered, as one line of a box.
QString ShownAnswer(std::string_view answer);

/// The four ways in which bytes are exchanged with the programmer. A port that fails raises
/// `SerialError` from each of them.
class Wire {
 public:
  /// Longest text between STX and ETX, and longest reply line, that are waited for: a hundred
  /// times what a programmer sends.
  static constexpr std::size_t Longest = 4096;

  explicit Wire(Comm& comm) : comm_(comm) {}

  /// Sends a command with its checksum and CR; no reply is awaited.
  void SendCommand(std::string_view command);

  /// Sends one record as a frame, again and again until it is acknowledged. False, after a message,
  /// when nothing at all comes back for `Timings::FrameReply`.
  bool SendFrame(std::string_view record);

  /// The next record, acknowledged whether it is good or not. Empty when the frame was bad or none
  /// came within `Timings::FrameReply`. `InputLen` is 1, so that the frame after it stays waiting.
  std::string ReceiveFrame();

  /// Opens the port, sends the command and waits for a line. The operator is asked with these
  /// buttons when none comes within `Timings::LineReply`. Lets the operator's events through.
  Reply Query(std::string_view command, Buttons buttons);

  /// Tells that the programmer did not answer, or only with this text, and closes the port.
  Answer TellNoAnswer(Buttons buttons, std::string_view answer = {});

 private:
  std::string Acknowledged(std::string_view frame, std::size_t etx);
  bool ReadLine(std::string& line);
  void TakeLineFeed(std::string& line);

  Comm& comm_;
};

}  // namespace nira
