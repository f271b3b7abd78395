// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QString>

#include <optional>

namespace nira {

/// The programmer's display: two rows of 20 characters for one alarm message.
struct MessageDisplay {
  static constexpr int Columns = 20;
  static constexpr int Longest = 2 * Columns;  ///< characters of a message that it can show

  QString upper;
  QString lower;
};

/// The rows as the programmer shows a text.
MessageDisplay RowsOf(const QString& text);

/// The rows with which the preview opens: character 20 stands in both.
MessageDisplay RowsOnOpening(const QString& text);

/// A message as the list shows it: number with three digits, a blank, the text.
QString ListEntry(int number, const QString& text);

/// Number of the first message that contains `text`, capitals and small letters told apart: of
/// those behind message `after`, then of all from the first on.
std::optional<int> FindMessage(const CamProgram& program, const QString& text, int after = 0);

/// The message number that an answer names. The last message cannot be named.
std::optional<int> NumberToSelect(const CamProgram& program, const QString& answer);

/// True when a message of the program holds anything, blanks included.
bool HoldsMessages(const CamProgram& program);

/// Empties the messages of the program.
void ClearMessages(CamProgram& program);

}  // namespace nira
