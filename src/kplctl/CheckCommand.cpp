// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "DifferenceWords.h"
#include "FirmwareCheck.h"
#include "MessageCheck.h"
#include "Printable.h"
#include "ScriptCheck.h"

#include <QFileInfo>

namespace nira {

namespace {

/// Names what the program would lose on its way; false when there is anything.
bool TellLosses(const Console& console, const QString& file, const CamProgram& program) {
  const QStringList lost = NotKeptInFile(program) + NotKeptOnLine(program);
  for (const QString& words : lost) {
    console.Out << Printable(file) << ": " << Printable(words) << '\n';
  }
  return lost.isEmpty();
}

bool CheckCamFile(const Console& console, const QString& file, bool survive) {
  CamProgram program;
  const auto loaded = ReadCamFile(console, file, {}, program);
  if (!loaded) {
    PrintFault(console.Out, file, loaded.Why());
    return false;
  }
  console.Out << Printable(file) << ": good: " << Summary(program);
  if (loaded->WithoutEnd) console.Out << "; " << WithoutEnd;
  console.Out << '\n';
  return !survive || TellLosses(console, file, program);
}

bool CheckScriptOf(const Console& console, const QString& file) {
  const ScriptReport report = CheckScriptFile(file);
  if (report.fault) {
    PrintFault(console.Out, file, *report.fault);
    return false;
  }
  console.Out << Printable(file) << ": good: " << Counted(report.lines, "line") << ", "
              << Counted(report.texts, "text");
  if (report.missing > 0) console.Out << "; " << report.missing << " used texts are missing";
  console.Out << '\n';
  return true;
}

bool CheckFile(const Console& console, const QString& file, bool survive) {
  const QString extension = QFileInfo(file).suffix().toLower();
  if (extension == QStringLiteral("cam")) return CheckCamFile(console, file, survive);
  if (extension == QStringLiteral("scr")) return CheckScriptOf(console, file);
  if (extension == QStringLiteral("msg")) return CheckMessages(console, file);
  if (extension == QStringLiteral("abs")) return CheckFirmware(console, file);
  PrintFault(console.Out, file,
             {.Text = QStringLiteral("none of .cam, .scr, .msg and .abs by its name")});
  return false;
}

int RunCheck(Console& console, const Arguments& arguments) {
  bool good = true;
  for (const QString& file : arguments.Words) {
    good = CheckFile(console, file, arguments.Has("survive")) && good;
    console.Out.flush();
  }
  return good ? Console::Good : Console::Failed;
}

}  // namespace

Command CheckCommand() {
  return {
      .name = "check",
      .synopsis = "FILE... [--survive]",
      .summary = "read each .cam, .scr, .msg or .abs file and name its first fault",
      .most = Command::Any,
      .options = {{"survive", Option::Kind::Flag, "",
                   "name what of a cam program a saved file and the programmer would not hold"}},
      .run = RunCheck};
}

}  // namespace nira
