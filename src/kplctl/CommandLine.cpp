// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"

#include "Commands.h"
#include "ConsolePrompts.h"
#include "Printable.h"
#include "Usage.h"
#include "files/WorkingFolder.h"

#include <QCoreApplication>

namespace nira {

namespace {

constexpr const char* textsName = "p32qx_EN.SCR";

/// The command of that name; null when there is none.
const Command* FindCommand(const QString& name) {
  for (const Command& command : AllCommands()) {
    if (name == QLatin1String(command.name)) return &command;
  }
  return nullptr;
}

/// The option that is written so, dashes included; null when there is none.
const Option* FindOption(const std::vector<Option>& options, const QString& written) {
  for (const Option& option : options) {
    if (written == QStringLiteral("--") + QLatin1String(option.name)) return &option;
    if (*option.letter != '\0' && written == u'-' + QLatin1String(option.letter)) return &option;
  }
  return nullptr;
}

/// Why an option cannot have that value; empty when it can.
QString ValueFault(const Option& option, const QString& written, const QString& value) {
  bool good = !value.isEmpty();
  if (option.kind == Option::Kind::Number) value.toInt(&good);
  if (good) return {};
  return written + (option.kind == Option::Kind::Number ? QStringLiteral(" takes a number")
                                                        : QStringLiteral(" takes a value"));
}

/// The command line, understood or refused with the reason.
class CommandLine {
 public:
  explicit CommandLine(const QStringList& line) : line_(line) {
    Parse();
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
  void Parse();
  void TakeWord();
  void TakeOption();
  QString Fault() const;
  QString OfCommand(const char* text) const {
    return QLatin1String(command_->name) + QLatin1String(text);
  }

  const QStringList& line_;
  qsizetype at_ = 1;  // in line_; 0 is the program's name
  const Command* command_ = nullptr;
  Arguments given_;
  QString error_;
};

void CommandLine::Parse() {
  bool options = true;
  while (at_ < line_.size() && error_.isEmpty()) {
    const QString& argument = line_.at(at_);
    if (options && argument == QStringLiteral("--")) {
      options = false;
      ++at_;
    } else if (options && argument.size() > 1 && argument.startsWith(u'-')) {
      TakeOption();
    } else {
      TakeWord();
    }
  }
}

void CommandLine::TakeWord() {
  const QString& word = line_.at(at_);
  if (command_ == nullptr) {
    command_ = FindCommand(word);
    if (command_ == nullptr) error_ = QStringLiteral("unknown command ") + word;
    ++at_;
    return;
  }
  if (word.isEmpty()) error_ = OfCommand(": an argument is empty");
  qsizetype count = 1;
  if (command_->literals != nullptr) {
    count += command_->literals(line_, at_, given_.Words.size());
  }
  for (; count > 0 && at_ < line_.size(); --count) given_.Words.append(line_.at(at_++));
}

void CommandLine::TakeOption() {
  const QString argument = line_.at(at_++);
  const qsizetype equals = argument.startsWith(QStringLiteral("--")) ? argument.indexOf(u'=') : -1;
  const QString written = argument.left(equals);  // all of it when there is none
  const Option* option = FindOption(CommonOptions(), written);
  if (option == nullptr && command_ != nullptr) option = FindOption(command_->options, written);
  if (option == nullptr) {
    error_ = command_ != nullptr
                 ? QString(OfCommand(" takes no ") + written)
                 : QString(written + QStringLiteral(" is no option of every command; those of a "
                                                    "command stand behind it"));
    return;
  }
  QString value = argument.mid(written.size() + 1);
  if (option->kind == Option::Kind::Flag) {
    if (equals >= 0) error_ = written + QStringLiteral(" takes no value");
  } else {
    if (equals < 0 && at_ < line_.size()) value = line_.at(at_++);
    error_ = ValueFault(*option, written, value);
  }
  given_.SetOption(option->name, value);
}

/// Holds the words against what the command takes.
QString CommandLine::Fault() const {
  if (command_ == nullptr) return QStringLiteral("no command given");
  if (given_.Words.size() < command_->fewest) return OfCommand(": an argument is missing");
  if (given_.Words.size() > command_->most) return OfCommand(": too many arguments");
  return command_->fault != nullptr ? command_->fault(given_) : QString();
}

/// The English texts that came with the program; empty texts when there are none.
MessageTable InstalledTexts() {
  MessageTable texts;
  const QString folder = WorkingFolder::InstalledScripts(QCoreApplication::applicationDirPath());
  if (!folder.isEmpty()) texts.Read(WorkingFolder(folder).Find(QString::fromLatin1(textsName)));
  return texts;
}

int RunCommand(const CommandLine& line, QTextStream& out, QTextStream& err) {
  ConsolePrompts prompts(err, line.Given().Has("yes"));
  MessageTable texts = InstalledTexts();
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
  const QString usage = line.Chosen() != nullptr ? UsageOf(*line.Chosen()) : Usage();
  if (!line.Error().isEmpty()) {
    err << "kplctl: " << Printable(line.Error()) << "\n\n" << usage;
    return Console::WrongUsage;
  }
  if (line.Given().Has("help")) {
    out << usage;
    return Console::Good;
  }
  if (line.Given().Has("version")) {
    out << "kplctl " << NIRA_VERSION << '\n';
    return Console::Good;
  }
  return RunCommand(line, out, err);
}

}  // namespace nira
