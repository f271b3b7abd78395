// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Console.h"
#include "ground/Result.h"

#include <QString>
#include <QTextStream>

namespace nira {

/// What an alarm message file holds, as far as it was read.
struct MessagesReport {
  int lines = 0;
  int texts = 0;  ///< messages that are not blank
  Refusal fault;
};

/// Looks for the first thing in a message file that would not reach the programmer as it stands:
/// a line that is no message, a number that is not the line's, a text that loses characters or
/// that the display cannot show. A file as it was received, with the programmer's own records and
/// the line END, is in order.
MessagesReport CheckMessageFile(const QString& path);

/// Prints that a message file is good, or its first fault. True when it is good.
bool CheckMessages(const Console& console, const QString& file);

/// Prints each message that is not blank with its number, as the windows would read it; the fault
/// says why the file could not be read to its end.
Refusal ListMessages(const QString& path, QTextStream& out);

}  // namespace nira
