#include "app/CamFileAccess.h"
#include "app/Commands.h"
#include "app/MessageCheck.h"
#include "app/Printable.h"

namespace nira {

namespace {

QString MessagesFault(const Arguments& arguments) {
  const QString& action = arguments.Words.first();
  if (action == QLatin1String("list") || action == QLatin1String("check")) return {};
  return QStringLiteral("messages: there is no action ") + action;
}

int RunMessages(Console& console, const Arguments& arguments) {
  const QString& file = arguments.Words.last();
  if (arguments.Words.first() == QLatin1String("check")) {
    return CheckMessages(console, file) ? Console::Good : Console::Failed;
  }
  const auto fault = ListMessages(file, console.Out);
  if (fault) PrintFault(console.Err, file, *fault);
  return fault ? Console::Failed : Console::Good;
}

}  // namespace

bool CheckMessages(const Console& console, const QString& file) {
  const MessagesReport report = CheckMessageFile(file);
  if (report.fault) {
    PrintFault(console.Out, file, *report.fault);
    return false;
  }
  console.Out << Printable(file) << ": good: " << Counted(report.lines, "message") << ", "
              << report.texts << " with text\n";
  return true;
}

Command MessagesCommand() {
  return {.name = "messages",
          .synopsis = "list|check FILE.msg",
          .summary = "print the alarm messages of a file, or name its first fault",
          .fewest = 2,
          .most = 2,
          .run = RunMessages,
          .fault = MessagesFault};
}

}  // namespace nira
