// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/FileWriter.h"
#include "files/LineReader.h"
#include "files/MessageTable.h"
#include "files/WorkingFolder.h"
#include "ground/Prompts.h"
#include "model/CamProgram.h"
#include "model/Globals.h"

#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// Reads and writes alarm message files: line k is message k, `N. 007 "TEXT"`, or `N. 007` for a
/// message without text. The number in a line is not read.
class MessageFile {
 public:
  /// `MsgFile` of what goes over the line: in the working folder, overwritten without a question.
  static constexpr const char* WorkName = "~.~";

  /// Bytes of the longest line that is taken; a longer one is none of a message file.
  static constexpr std::size_t MaxLine = 1000;

  enum class Reading {
    Clearing,  ///< what no line gives becomes empty, a line without a quote gives a blank
    Keeping,   ///< what no line with a quote gives stays as it is
  };

  MessageFile(CamProgram& program, Globals& globals, const WorkingFolder& folder, Prompts& prompts,
              const MessageTable& texts, FileWriter& writer)
      : program_(program),
        globals_(globals),
        folder_(folder),
        prompts_(prompts),
        texts_(texts),
        writer_(writer) {}

  /// Fills the messages from `MsgFile`; false, with nothing changed, when there is none or when it
  /// could not be read, which is told.
  bool ReadMsgFile();

  /// Fills the messages from a file in one of the two ways; false as above.
  bool ReadTexts(const QString& path, Reading reading);

  /// Writes the messages to `MsgFile`, asking first when it would replace a file. True when it was
  /// written: `MsgSaved` is true then, otherwise as it was.
  bool WriteMsgFile();

  /// The same two with the work file; `MsgFile` stays. What was received is in no file of the
  /// operator's, so `MsgSaved` is false after the reading; the writing leaves it.
  bool ReadWorkFile();
  bool WriteWorkFile();

  /// Path of the work file.
  QString WorkPath() const;

 private:
  void TellUnreadable(const QString& path, const QString& reason);

  CamProgram& program_;
  Globals& globals_;
  const WorkingFolder& folder_;
  Prompts& prompts_;
  const MessageTable& texts_;
  FileWriter& writer_;
};

/// The name of a message file to write: ".MSG" is added to one without a ".".
QString MessageFileName(const QString& chosen);

/// The next line of a message file: none at its end, and at a line of more than `MaxLine` bytes,
/// which `tooLong` then tells.
std::optional<std::string_view> NextMessageLine(LineReader& lines, bool& tooLong);

/// True for a line that is a message's, whatever follows.
bool IsMessageLine(std::string_view line);

/// The text of a message line: after its first double quote, without the line's last character.
/// None when it has no quote.
std::optional<QString> QuotedText(std::string_view line);

/// The lines of all messages of the program, as they stand in a file.
std::string WriteMessageLines(const CamProgram& program);

}  // namespace nira
