// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "Printable.h"
#include "ground/Text.h"
#include "model/PhaseList.h"

namespace nira {

namespace {

void ListAdvances(QTextStream& out, const FunctionsBlock& f) {
  if (f.AdvanceOn != 1) {
    out << "Advances: off\n";
    return;
  }
  out << "Advances: on, cams 1 to " << f.AdvanceLast + 1 << '\n';
  for (int cam = 0; cam <= f.AdvanceLast; ++cam) {
    out << "  cam " << ZeroFilled(cam + 1, 2) << ": " << f.CamFunc[static_cast<std::size_t>(cam)]
        << " ms\n";
  }
}

void ListFunctions(QTextStream& out, const FunctionsBlock& f) {
  ListAdvances(out, f);
  if (f.DelayOn == 1) {
    out << "Delays: on, cams 17-20: " << f.Delay17to20 << " ms, cams 21-24: " << f.Delay21to24
        << " ms\n";
  } else {
    out << "Delays: off\n";
  }
  if (f.Ratio25On == 1) {
    out << "Ratio: on, cams 25-32: 1/" << f.Ratio25to32 << '\n';
  } else {
    out << "Ratio: off\n";
  }
  out << "Output size: " << f.OutputSize << "\nEncoder shift: " << f.EncoderShift
      << "\nDirection of rotation: " << f.RotationSense << "\nSpeed limit: " << f.SpeedLimit
      << '\n';
}

void ListSize(QTextStream& out, const CamProgram& program, int size, std::optional<int> cam) {
  out << "\nSize " << ZeroFilled(size, 2) << '\n';
  const int first = cam.value_or(1);
  const int last = cam.value_or(program.NumCams());
  bool any = cam.has_value();
  for (int number = first; number <= last; ++number) {
    const QStringList phases = PhaseList::Of(program.CamMap(size, number - 1)).Lines();
    if (phases.isEmpty() && !cam) continue;
    any = true;
    out << "Cam " << ZeroFilled(number, 2);
    const QString description = Printable(program.CamText(number - 1));
    if (!description.isEmpty()) out << ' ' << description;
    out << (phases.isEmpty() ? ": no phases\n" : "\n");
    for (const QString& phase : phases) out << phase << '\n';
  }
  if (!any) out << "no phases\n";
}

int RunList(Console& console, const Arguments& arguments) {
  const QString& file = arguments.Words.first();
  CamProgram program;
  if (!OpenCamFile(console, file, {}, program)) return Console::Failed;
  QString reason = arguments.OutOfRange("size", program.NumSizes());
  if (reason.isEmpty()) reason = arguments.OutOfRange("cam", program.NumCams());
  if (!reason.isEmpty()) {
    console.Err << Printable(file) << ": " << reason << '\n';
    return Console::Failed;
  }
  console.Out << Printable(file) << ": " << Summary(program) << '\n';
  ListFunctions(console.Out, program.Functions());
  const auto size = arguments.Number("size");
  const int last = size.value_or(program.NumSizes());
  for (int number = size.value_or(1); number <= last; ++number) {
    ListSize(console.Out, program, number, arguments.Number("cam"));
  }
  return Console::Good;
}

}  // namespace

Command ListCommand() {
  using enum Option::Kind;
  return {.name = "list",
          .synopsis = "FILE.cam [--size N] [--cam N]",
          .summary = "print the functions and the phases of a cam file",
          .options = {{"size", Number, "N", "list this size alone"},
                      {"cam", Number, "N", "list this cam alone"}},
          .run = RunList};
}

}  // namespace nira
