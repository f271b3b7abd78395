// SPDX-License-Identifier: Apache-2.0
#include "Usage.h"

#include "Commands.h"

namespace nira {

namespace {

QString Latin(const char* text) {
  return QString::fromLatin1(text);
}

QString CommandWithArguments(const Command& command) {
  return Latin(command.name) + u' ' + Latin(command.synopsis);
}

/// "-o, --output OUT.cam"
QString OptionWithValue(const Option& option) {
  const QString letter = Latin(option.letter);
  QString shown = QStringLiteral("--") + Latin(option.name);
  if (!letter.isEmpty()) shown = u'-' + letter + QStringLiteral(", ") + shown;
  return option.kind == Option::Kind::Flag ? shown : QString(shown + u' ' + Latin(option.value));
}

QString OptionLines(const std::vector<Option>& options) {
  constexpr qsizetype column = 22;
  QString lines;
  for (const Option& option : options) {
    lines += QStringLiteral("  ") + OptionWithValue(option).leftJustified(column) + u' ' +
             Latin(option.help) + u'\n';
  }
  return lines;
}

}  // namespace

const std::vector<Option>& CommonOptions() {
  using enum Option::Kind;
  static const std::vector<Option> options = {
      {"yes", Flag, "", "answer every question with yes or OK, otherwise with no or Cancel"},
      {"help", Flag, "", "print the usage, behind a command that of the command", "h"},
      {"version", Flag, "", "print the version", "v"},
  };
  return options;
}

QString Usage() {
  QString text = QStringLiteral(
      "Usage: kplctl COMMAND [OPTION...] ARGUMENT...\n"
      "Does the work of nira-kpl without its windows.\n\nCommands:\n");
  for (const Command& command : AllCommands()) {
    text += QStringLiteral("  ") + CommandWithArguments(command) + QStringLiteral("\n      ") +
            Latin(command.summary) + u'\n';
  }
  return text + QStringLiteral("\nOptions of every command:\n") + OptionLines(CommonOptions()) +
         QStringLiteral(
             "\nThe exit status is 0 when all went well, 1 when not, 2 for a wrong command line.\n"
             "kplctl COMMAND --help tells more about a command.\n");
}

QString UsageOf(const Command& command) {
  QString text = QStringLiteral("Usage: kplctl ") + CommandWithArguments(command) + u'\n' +
                 Latin(command.summary) + u'\n';
  if (command.details != nullptr) text += u'\n' + command.details();
  return text + QStringLiteral("\nOptions:\n") + OptionLines(command.options) +
         OptionLines(CommonOptions());
}

}  // namespace nira
