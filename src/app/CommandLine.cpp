#include "app/CommandLine.h"

#include "app/ConsolePrompts.h"
#include "app/KplctlCommands.h"
#include "app/Printable.h"
#include "files/MessageTable.h"
#include "files/WorkingFolder.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <array>
#include <limits>
#include <optional>

namespace nira {

namespace {

constexpr int wrongUsage = 2;
constexpr const char* textsName = "p32qx_EN.SCR";

constexpr const char* usage =
    "Usage: kplctl COMMAND [OPTION...] FILE...\n"
    "Checks, lists and rewrites the files of nira-kpl without its windows.\n"
    "\n"
    "Commands:\n"
    "  check FILE...                        read each .cam or .scr file and name its first fault\n"
    "  list FILE.cam [--size N] [--cam N]   print the functions and the phases of a cam file\n"
    "  rewrite IN.cam OUT.cam [--cams N] [--sizes N] [--yes]\n"
    "                                       read a cam file and write it anew\n"
    "\n"
    "Options:\n"
    "  --size N, --cam N     list this size, this cam alone\n"
    "  --cams N, --sizes N   read into a program of so many cams, sizes; otherwise into one of as\n"
    "                        many as the file names\n"
    "  --yes                 answer every question with yes or OK, otherwise with no or Cancel\n"
    "  -h, --help            print this text\n"
    "  -v, --version         print the version\n"
    "\n"
    "The exit status is 0 when all went well, 1 when not, 2 for a wrong command line.\n";

class CommandLine;

struct Command {
  const char* name;
  qsizetype fewest;  ///< files that it takes
  qsizetype most;
  QStringList options;  ///< beside "yes", which every command takes
  int (*run)(KplctlCommands& commands, const CommandLine& line);
};

/// The command line, understood or refused with the reason.
class CommandLine {
 public:
  explicit CommandLine(const QStringList& arguments);

  /// Why the command line is not understood; empty when it is.
  const QString& Error() const { return error_; }

  bool Has(const char* option) const { return parser_.isSet(QString::fromLatin1(option)); }
  std::optional<int> Number(const char* option) const;
  const Command* Chosen() const { return command_; }
  const QStringList& Files() const { return files_; }

 private:
  QString Check() const;

  QCommandLineParser parser_;
  const Command* command_ = nullptr;
  QStringList files_;
  QString error_;
};

int Check(KplctlCommands& commands, const CommandLine& line) {
  return commands.Check(line.Files());
}

int List(KplctlCommands& commands, const CommandLine& line) {
  return commands.List(line.Files().first(), {line.Number("size"), line.Number("cam")});
}

int Rewrite(KplctlCommands& commands, const CommandLine& line) {
  return commands.Rewrite(line.Files().first(), line.Files().last(),
                          {line.Number("cams"), line.Number("sizes")});
}

/// The command of that name; null when there is none.
const Command* Find(const QString& name) {
  static const std::array<Command, 3> commands = {{
      {"check", 1, std::numeric_limits<qsizetype>::max(), {}, Check},
      {"list", 1, 1, {QStringLiteral("size"), QStringLiteral("cam")}, List},
      {"rewrite", 2, 2, {QStringLiteral("cams"), QStringLiteral("sizes")}, Rewrite},
  }};
  for (const Command& command : commands) {
    if (name == QLatin1String(command.name)) return &command;
  }
  return nullptr;
}

CommandLine::CommandLine(const QStringList& arguments) {
  parser_.addOptions({{{QStringLiteral("h"), QStringLiteral("help")}, {}},
                      {{QStringLiteral("v"), QStringLiteral("version")}, {}},
                      {QStringLiteral("yes"), {}}});
  for (const char* option : {"size", "cam", "sizes", "cams"}) {
    parser_.addOption({QString::fromLatin1(option), {}, QStringLiteral("N")});
  }
  if (!parser_.parse(arguments)) {
    error_ = parser_.errorText();
    return;
  }
  files_ = parser_.positionalArguments();
  if (Has("help") || Has("version")) return;
  if (files_.isEmpty()) {
    error_ = QStringLiteral("no command given");
    return;
  }
  const QString name = files_.takeFirst();
  command_ = Find(name);
  error_ = command_ == nullptr ? QStringLiteral("unknown command ") + name : Check();
}

/// Holds files and options against what the command takes.
QString CommandLine::Check() const {
  const QString name = QString::fromLatin1(command_->name);
  if (files_.size() < command_->fewest) return name + QStringLiteral(": a file name is missing");
  if (files_.size() > command_->most) return name + QStringLiteral(": too many file names");
  if (files_.contains(QString())) return name + QStringLiteral(": a file name is empty");
  const QStringList given = parser_.optionNames();
  for (const QString& option : given) {
    if (option == QStringLiteral("yes")) continue;
    if (!command_->options.contains(option)) return name + QStringLiteral(" takes no --") + option;
    bool number = false;
    parser_.value(option).toInt(&number);
    if (!number) return QStringLiteral("--") + option + QStringLiteral(" takes a number");
  }
  return {};
}

std::optional<int> CommandLine::Number(const char* option) const {
  if (!Has(option)) return std::nullopt;
  return parser_.value(QString::fromLatin1(option)).toInt();
}

/// The English texts that came with the program; empty texts when there are none.
MessageTable InstalledTexts() {
  MessageTable texts;
  const QString folder = WorkingFolder::InstalledScripts(QCoreApplication::applicationDirPath());
  if (!folder.isEmpty()) texts.Read(WorkingFolder(folder).Find(QString::fromLatin1(textsName)));
  return texts;
}

int RunCommand(const CommandLine& line, QTextStream& out, QTextStream& err) {
  ConsolePrompts prompts(err, line.Has("yes"));
  const MessageTable texts = InstalledTexts();
  KplctlCommands commands(prompts, texts, out, err);
  return line.Chosen()->run(commands, line);
}

}  // namespace

int RunKplctl(const QStringList& arguments, QTextStream& out, QTextStream& err) {
  const CommandLine line(arguments);
  if (!line.Error().isEmpty()) {
    err << "kplctl: " << Printable(line.Error()) << "\n\n" << usage;
    return wrongUsage;
  }
  if (line.Has("help")) {
    out << usage;
    return KplctlCommands::Good;
  }
  if (line.Has("version")) {
    out << "kplctl " << NIRA_VERSION << '\n';
    return KplctlCommands::Good;
  }
  return RunCommand(line, out, err);
}

}  // namespace nira
