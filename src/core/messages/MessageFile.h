// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/FileWriter.h"
#include "files/LineReader.h"
#include "ground/Result.h"
#include "model/CamProgram.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nira {

/// What a line of a message file says about its message.
struct MessageLine {
  bool IsMessage = false;            ///< it is a message's, whatever follows
  std::optional<QString> Text = {};  ///< none when such a line has no quote
};

/// An alarm message file: line k is message k, `N. 007 "TEXT"`, or `N. 007` for a message without
/// text. The number in a line is not read.
struct MessageFile {
  /// What goes over the line for the message editor, in the working folder.
  static constexpr const char* WorkName = "~.~";

  /// Bytes of the longest line that is taken; a longer one is none of a message file.
  static constexpr std::size_t MaxLine = 1000;

  std::vector<MessageLine> Lines;  ///< of message 1 on, as many as were asked for at most
  int Last = 0;                    ///< number of the last message line, those beyond included

  /// False when it has lines, and none of them is a message's.
  bool HasMessages() const { return Lines.empty() || Last > 0; }
};

/// The lines of a file for the first `most` messages; of those beyond only how many there are. The
/// fault is `NoMessages`, `CannotRead`, or `BadLine` at a line that is too long.
Result<MessageFile> ReadMsgFile(const QString& path, int most);
Result<MessageFile> ReadMsgFile(LineReader& lines, int most);

/// Gives the program the messages of a file: what no line gives becomes empty, a line without a
/// quote gives a blank.
void ReplaceMessages(CamProgram& program, const MessageFile& file);

/// The same, but what no line with a quote gives stays as it is.
void MergeMessages(CamProgram& program, const MessageFile& file);

/// Writes all messages of the program.
Refusal WriteMsgFile(const CamProgram& program, const QString& path, FileWriter& writer,
                     FileWriter::Backup backup);

/// What of a message file had better not be sent as it stands.
struct MessagesToSend {
  bool Sendable = false;    ///< the first line is a message's
  bool HasText = false;     ///< a message is not blank
  QString Control = {};     ///< the first control character of a text, by its picture
  std::int64_t Number = 0;  ///< of the message that holds it
};

/// Looks through what a transmission takes of a file: its lines until END.
MessagesToSend LookThrough(LineReader& lines);

/// The name of a message file to write: ".MSG" is added to one without a ".".
QString MessageFileName(const QString& chosen);

/// The next line of a message file: none at its end, and at a line of more than `MaxLine` bytes,
/// which `tooLong` then tells.
std::optional<std::string_view> NextMessageLine(LineReader& lines, bool& tooLong);

/// True for a line that is a message's, whatever follows.
bool IsMessageLine(std::string_view line);

/// The number that stands in a message line, which is what a programmer goes by.
std::int64_t NumberInLine(std::string_view line);

/// The text of a message line: after its first double quote, without the line's last character.
/// None when it has no quote.
std::optional<std::string_view> QuotedBytes(std::string_view line);
std::optional<QString> QuotedText(std::string_view line);

/// The lines of all messages of the program, as they stand in a file.
std::string WriteMessageLines(const CamProgram& program);

}  // namespace nira
