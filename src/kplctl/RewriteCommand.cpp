// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"

namespace nira {

namespace {

int RunRewrite(Console& console, const Arguments& arguments) {
  QString reason = arguments.OutOfRange("cams", CamProgram::MaxCams);
  if (reason.isEmpty()) reason = arguments.OutOfRange("sizes", CamProgram::MaxSizes);
  if (!reason.isEmpty()) {
    console.Err << "kplctl: " << reason << '\n';
    return Console::Failed;
  }
  const QString& from = arguments.Words.first();
  CamProgram program;
  const Dimensions named{arguments.Number("cams"), arguments.Number("sizes")};
  if (!OpenCamFile(console, from, named, program)) return Console::Failed;
  return SaveCamFile(console, from, arguments.Words.last(), program);
}

}  // namespace

Command RewriteCommand() {
  using enum Option::Kind;
  return {.name = "rewrite",
          .synopsis = "IN.cam OUT.cam [--cams N] [--sizes N] [--yes]",
          .summary = "read a cam file and write it anew; nothing is written unless all was read",
          .fewest = 2,
          .most = 2,
          .options = {{"cams", Number, "N",
                       "read into a program of so many cams, not of as many as the file names"},
                      {"sizes", Number, "N", "the same for the sizes"}},
          .run = RunRewrite};
}

}  // namespace nira
