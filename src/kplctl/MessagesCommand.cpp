// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "MessageCheck.h"
#include "MessagesOnLine.h"
#include "Printable.h"

namespace nira {

namespace {

using OnLineAction = int (*)(LineSession& session, const QString& file);

/// What an action does on the line; null when it needs none.
OnLineAction ActionOnLine(const QString& action) {
  if (action == QLatin1String("send")) return SendMessages;
  return action == QLatin1String("receive") ? ReceiveMessages : nullptr;
}

QString MessagesFault(const Arguments& arguments) {
  const QString& action = arguments.Words.first();
  if (ActionOnLine(action) != nullptr) return LineFault(arguments);
  if (action != QLatin1String("list") && action != QLatin1String("check")) {
    return QStringLiteral("messages: there is no action ") + action;
  }
  for (const Option& option : {PortOption, BaudOption, TraceOption}) {
    if (arguments.Has(option.name)) {
      return QStringLiteral("messages ") + action + QStringLiteral(" takes no --") +
             QLatin1String(option.name);
    }
  }
  return {};
}

int RunMessages(Console& console, const Arguments& arguments) {
  const QString& file = arguments.Words.last();
  if (const OnLineAction action = ActionOnLine(arguments.Words.first())) {
    return OnLine(console, arguments,
                  [action, &file](LineSession& session) { return action(session, file); });
  }
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
  return {
      .name = "messages",
      .synopsis =
          "list|check|send|receive FILE.msg [--port N|DEVICE] [--baud N] [--trace FILE] [--yes]",
      .summary = "print the alarm messages of a file, name its first fault, send it, or fill it",
      .fewest = 2,
      .most = 2,
      .options = {PortOption, BaudOption, TraceOption},
      .run = RunMessages,
      .fault = MessagesFault};
}

}  // namespace nira
