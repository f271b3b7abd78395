// SPDX-License-Identifier: Apache-2.0
#include "messages/MessageTexts.h"

#include "ground/Text.h"

namespace nira {

MessageDisplay RowsOf(const QString& text) {
  return {text.left(MessageDisplay::Columns),
          text.mid(MessageDisplay::Columns, MessageDisplay::Columns)};
}

MessageDisplay RowsOnOpening(const QString& text) {
  return {text.left(MessageDisplay::Columns),
          text.mid(MessageDisplay::Columns - 1, MessageDisplay::Columns)};
}

QString ListEntry(int number, const QString& text) {
  return ZeroFilled(number, 3) + u' ' + text;
}

std::optional<int> FindMessage(const CamProgram& program, const QString& text, int after) {
  const int messages = program.NumMessages();
  for (int step = 0; step < messages; ++step) {
    const int number = (after + step) % messages + 1;
    if (program.MessageText(number).contains(text, Qt::CaseSensitive)) return number;
  }
  return std::nullopt;
}

std::optional<int> NumberToSelect(const CamProgram& program, const QString& answer) {
  const std::int64_t number = NumericValue(answer);
  if (number < 1 || number >= program.NumMessages()) return std::nullopt;
  return static_cast<int>(number);
}

bool HoldsMessages(const CamProgram& program) {
  for (int number = 1; number <= program.NumMessages(); ++number) {
    if (!program.MessageText(number).isEmpty()) return true;
  }
  return false;
}

void ClearMessages(CamProgram& program) {
  for (int number = 1; number <= program.NumMessages(); ++number) {
    program.SetMessageText(number, QString());
  }
}

}  // namespace nira
