// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "Printable.h"
#include "model/FunctionFields.h"

namespace nira {

namespace {

void PrintField(QTextStream& out, const QString& name, int value, const FunctionField& field) {
  out << name.leftJustified(13) << ' ' << QString::number(value).rightJustified(5) << ' '
      << QString::fromLatin1(field.unit).leftJustified(3) << "  " << field.meaning;
}

/// The cams that have an advance. That of cam 1 is never in a file.
void PrintPerCam(QTextStream& out, const FunctionsBlock& block, const FunctionField& field) {
  for (int cam = 0; block.AdvanceOn == 1 && cam <= block.AdvanceLast; ++cam) {
    const QString name = QLatin1String(field.name) + u' ' + QString::number(cam + 1);
    PrintField(out, name, field.Value(block, cam), field);
    out << (cam == 0 ? "; no cam file keeps it\n" : "\n");
  }
}

int RunFunctions(Console& console, const Arguments& arguments) {
  const QString& file = arguments.Words.first();
  CamProgram program;
  if (!OpenCamFile(console, file, {}, program)) return Console::Failed;
  const FunctionsBlock& block = program.Functions();
  console.Out << Printable(file) << ": " << Summary(program) << '\n';
  for (const FunctionField& field : FunctionFields()) {
    if (field.IsPerCam()) {
      PrintPerCam(console.Out, block, field);
    } else {
      PrintField(console.Out, QString::fromLatin1(field.name), field.Value(block), field);
      console.Out << '\n';
    }
  }
  return Console::Good;
}

}  // namespace

Command FunctionsCommand() {
  return {.name = "functions",
          .synopsis = "FILE.cam",
          .summary = "print every field of the functions: name, value, unit and meaning",
          .run = RunFunctions};
}

}  // namespace nira
