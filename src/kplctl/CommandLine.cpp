// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"

#include "Commands.h"
#include "ConsolePrompts.h"
#include "Printable.h"
#include "Usage.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace nira {

namespace {

/// The command of that name; null when there is none.
const Command* FindCommand(const QString& name) {
  for (const Command& command : AllCommands()) {
    if (name == QLatin1String(command.name)) return &command;
  }
  return nullptr;
}

/// A word that is taken as it stands wears this in front while the line is parsed: no command line
/// can hold it.
constexpr QChar literalMark(u'\0');

bool IsOption(const QString& argument) {
  return argument.size() > 1 && argument.startsWith(u'-');
}

QCommandLineOption ParserOption(const Option& option) {
  QStringList names = {QString::fromLatin1(option.name)};
  if (*option.letter != '\0') names.append(QString::fromLatin1(option.letter));
  const bool flag = option.kind == Option::Kind::Flag;
  return QCommandLineOption(names, {}, flag ? QString() : QString::fromLatin1(option.value));
}

/// The command line, understood or refused with the reason.
class CommandLine {
 public:
  explicit CommandLine(const QStringList& line) {
    error_ = Choose(line);
    if (error_.isEmpty()) error_ = Parse(line);
    if (error_.isEmpty() && !IsQuestion()) error_ = Fault();
  }

  /// Why the command line is not understood; empty when it is.
  const QString& Error() const { return error_; }

  /// Null when none was given.
  const Command* Chosen() const { return command_; }
  const Arguments& Given() const { return given_; }

  /// True when it asks for the usage or the version.
  bool IsQuestion() const { return given_.Has("help") || given_.Has("version"); }

 private:
  QString Choose(const QStringList& line);
  QString Parse(const QStringList& line);
  QStringList WithLiterals(QStringList line) const;
  bool TakesNext(const QString& argument) const;
  QString TakeOption(const Option& option, const QStringList& values);
  QString TakeWords(const QStringList& words);
  QString Fault() const;
  QString OfCommand(const char* text) const {
    return QLatin1String(command_->name) + QLatin1String(text);
  }

  const Command* command_ = nullptr;
  std::vector<Option> options_ = CommonOptions();
  Arguments given_;
  QString error_;
};

/// The command is the first word: what stands before it are options of every command, which take no
/// values.
QString CommandLine::Choose(const QStringList& line) {
  for (const QString& argument : line.mid(1)) {
    if (IsOption(argument)) continue;
    command_ = FindCommand(argument);
    if (command_ == nullptr) return QStringLiteral("unknown command ") + argument;
    options_.insert(options_.begin(), command_->options.begin(), command_->options.end());
    return {};
  }
  return {};
}

QString CommandLine::Parse(const QStringList& line) {
  QCommandLineParser parser;
  for (const Option& option : options_) parser.addOption(ParserOption(option));
  if (!parser.parse(WithLiterals(line))) {
    return command_ != nullptr ? QString(OfCommand(": ") + parser.errorText()) : parser.errorText();
  }
  for (const Option& option : options_) {
    const QString name = QString::fromLatin1(option.name);
    const bool flag = option.kind == Option::Kind::Flag;
    if (!parser.isSet(name)) continue;
    const QString fault = TakeOption(option, flag ? QStringList(QString()) : parser.values(name));
    if (!fault.isEmpty()) return fault;
  }
  return TakeWords(parser.positionalArguments().mid(1));
}

/// True when the argument is an option that is followed by its value.
bool CommandLine::TakesNext(const QString& argument) const {
  return std::any_of(options_.begin(), options_.end(), [&argument](const Option& option) {
    const bool named = argument == QStringLiteral("--") + QLatin1String(option.name) ||
                       (*option.letter != '\0' && argument == u'-' + QLatin1String(option.letter));
    return named && option.kind != Option::Kind::Flag;
  });
}

/// The line with a mark before each word that the command wants as it stands.
QStringList CommandLine::WithLiterals(QStringList line) const {
  if (command_ == nullptr || command_->literals == nullptr) return line;
  qsizetype place = -1;  // of a word; the command itself is none
  for (qsizetype at = 1; at < line.size() && line.at(at) != QStringLiteral("--"); ++at) {
    if (IsOption(line.at(at))) {
      if (TakesNext(line.at(at))) ++at;
      continue;
    }
    qsizetype count = place < 0 ? 0 : command_->literals(line, at, place);
    for (++place; count > 0 && at + 1 < line.size(); --count, ++place)
      line[++at].prepend(literalMark);
  }
  return line;
}

/// Takes the values of an option, or says why it cannot have them.
QString CommandLine::TakeOption(const Option& option, const QStringList& values) {
  for (const QString& value : values) {
    bool good = option.kind == Option::Kind::Flag || !value.isEmpty();
    if (option.kind == Option::Kind::Number) value.toInt(&good);
    if (!good) {
      return QStringLiteral("--") + QLatin1String(option.name) +
             (option.kind == Option::Kind::Number ? QStringLiteral(" takes a number")
                                                  : QStringLiteral(" takes a value"));
    }
    given_.SetOption(option.name, value);
  }
  return {};
}

QString CommandLine::TakeWords(const QStringList& words) {
  for (const QString& word : words) {
    if (word.isEmpty()) return OfCommand(": an argument is empty");
    given_.Words.append(word.startsWith(literalMark) ? word.mid(1) : word);
  }
  return {};
}

/// Holds the words against what the command takes.
QString CommandLine::Fault() const {
  if (command_ == nullptr) return QStringLiteral("no command given");
  if (given_.Words.size() < command_->fewest) return OfCommand(": an argument is missing");
  if (given_.Words.size() > command_->most) return OfCommand(": too many arguments");
  return command_->fault != nullptr ? command_->fault(given_) : QString();
}

int RunCommand(const CommandLine& line, QTextStream& out, QTextStream& err) {
  ConsolePrompts prompts(err, line.Given().Has("yes"));
  MessageTable texts;  // without a script: the built-in texts, in English
  FileWriter writer;
  Console console{prompts, texts, writer, out, err};
  return line.Chosen()->run(console, line.Given());
}

}  // namespace

bool NeedsFonts(const QStringList& arguments) {
  const CommandLine line(arguments);
  return line.Error().isEmpty() && !line.IsQuestion() && line.Chosen()->needsFonts;
}

int RunKplctl(const QStringList& arguments, QTextStream& out, QTextStream& err) {
  const CommandLine line(arguments);
  const Command* command = line.Chosen();
  if (!line.Error().isEmpty()) {
    err << "kplctl: " << Printable(line.Error()) << "\nkplctl "
        << (command != nullptr ? QString(QLatin1String(command->name) + u' ') : QString())
        << "--help tells more\n";
    return Console::WrongUsage;
  }
  if (line.Given().Has("help")) {
    out << (command != nullptr ? UsageOf(*command) : Usage());
    return Console::Good;
  }
  if (line.Given().Has("version")) {
    out << "kplctl " << NIRA_VERSION << '\n';
    return Console::Good;
  }
  return RunCommand(line, out, err);
}

}  // namespace nira
