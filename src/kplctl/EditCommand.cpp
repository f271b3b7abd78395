// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "DifferenceWords.h"
#include "EditOperations.h"
#include "Printable.h"
#include "ProgramEdit.h"

namespace nira {

namespace {

EditOperations OperationsOf(const Arguments& arguments) {
  return EditOperations::Of(arguments.Words.mid(1));
}

QString EditFault(const Arguments& arguments) {
  if (!arguments.Has("output")) return QStringLiteral("edit: -o OUT.cam is missing");
  return OperationsOf(arguments).fault;
}

/// The input file is a file name; what follows an operation's name is its own.
qsizetype EditLiterals(const QStringList& line, qsizetype at, qsizetype place) {
  return place == 0 ? 0 : EditOperations::ArgumentsAt(line, at);
}

int RunEdit(Console& console, const Arguments& arguments) {
  const QString& from = arguments.Words.first();
  const QString to = arguments.Text("output");
  CamProgram program;
  if (!OpenCamFile(console, from, {}, program)) return Console::Failed;
  const EditOperations all = OperationsOf(arguments);
  ProgramEdit edit(program, console.Texts);
  if (const auto refusal = edit.Run(all.operations)) {
    console.Err << "kplctl: " << Printable(refusal->Text) << '\n';
    return Console::Failed;
  }
  for (const QString& remark : edit.Remarks) console.Err << Printable(remark) << '\n';
  const int status = SaveCamFile(console, from, to, program);
  if (status != Console::Good) return status;
  for (const QString& lost : NotKeptInFile(program)) {
    console.Err << Printable(to) << ": " << Printable(lost) << '\n';
  }
  return Console::Good;
}

}  // namespace

Command EditCommand() {
  return {.name = "edit",
          .synopsis = "IN.cam -o OUT.cam OPERATION... [--yes]",
          .summary = "read a cam file, change the program and write it",
          .fewest = 2,
          .most = Command::Any,
          .options = {{"output", Option::Kind::Text, "OUT.cam", "the file to write", "o"}},
          .run = RunEdit,
          .fault = EditFault,
          .literals = EditLiterals,
          .details = EditOperations::Usage};
}

}  // namespace nira
