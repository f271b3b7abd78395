// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"
#include "Printable.h"
#include "ProgramTransfer.h"
#include "ground/Text.h"
#include "line/Identity.h"

namespace nira {

namespace {

/// Prints what the programmer says of itself, whether or not this program serves it.
TransferEnd TellIdentity(LineSession& session) {
  std::string reply;
  switch (AskIdentity(session.Line(), reply)) {
    case Identity::Accepted:
      break;
    case Identity::Cancelled:
      return TransferEnd::Cancelled;
    case Identity::Rejected:
    case Identity::PortError:
      return TransferEnd::PortError;
  }
  const ProgrammerLimits found = IdentityFields(reply).value_or(ProgrammerLimits());
  session.Terminal().Out << Printable(FromBytes(reply).trimmed()) << '\n'
                         << "cams      " << found.Cams << '\n'
                         << "sizes     " << found.Sizes << '\n'
                         << "messages  " << found.Messages << Qt::endl;
  const bool served = TakeIdentity(session.Line(), reply) == Identity::Accepted;
  return served ? TransferEnd::Done : TransferEnd::NotIdentified;
}

int RunIdentify(Console& console, const Arguments& arguments) {
  return OnLine(console, arguments, IdentifyProgrammer);
}

}  // namespace

int IdentifyProgrammer(LineSession& session) {
  const auto reason = session.Run([&session] { return TellIdentity(session); });
  if (!reason) return Console::Good;
  session.Terminal().Err << "kplctl: not identified: " << Printable(*reason) << Qt::endl;
  return Console::Failed;
}

Command IdentifyCommand() {
  return {.name = "identify",
          .synopsis = "[--port N|DEVICE] [--baud N] [--trace FILE]",
          .summary = "ask the programmer which model it is",
          .fewest = 0,
          .most = 0,
          .options = {PortOption, BaudOption, TraceOption},
          .run = RunIdentify,
          .fault = LineFault};
}

}  // namespace nira
