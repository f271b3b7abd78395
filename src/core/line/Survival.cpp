// SPDX-License-Identifier: Apache-2.0
#include "line/Survival.h"

#include "files/CamFile.h"
#include "files/CamLines.h"
#include "files/CamWords.h"
#include "files/LineReader.h"
#include "files/SizeBlockReader.h"
#include "line/SentFunctions.h"
#include "line/WireFunctions.h"
#include "model/FunctionRules.h"

#include <algorithm>
#include <string>

namespace nira {

namespace {

CamProgram EmptyLike(const CamProgram& program) {
  CamProgram empty;
  empty.SetLimits(program.NumSizes(), program.NumCams(), program.NumMessages());
  return empty;
}

/// The functions that the records leave in the programmer. Where it has no groups the flag of the
/// advances is nothing that it knows: it stays as it is here.
FunctionsBlock FunctionsThroughLine(const CamProgram& program) {
  FunctionsBlock block =
      FunctionsOf(FunctionsRecords(program), program.NumCams()).value_or(FunctionsBlock{});
  if (!HasGroups(program.NumCams())) block.AdvanceOn = program.Functions().AdvanceOn;
  for (std::uint8_t& advance : block.CamFunc) {
    advance = std::min<std::uint8_t>(advance, HighestTime);  // no reception takes more
  }
  return block;
}

/// The lines that are sent for a size.
std::string LinesOf(const CamProgram& program, int size) {
  std::string lines;
  for (int cam = 0; cam < program.NumCams(); ++cam) {
    for (const std::string& line : BuildCamLines(program, size, cam, true)) {
      if (line.empty()) break;
      lines += line + "\r\n";
    }
  }
  return lines + std::string(EndWord) + "\r\n";
}

}  // namespace

CamProgram ThroughFile(const CamProgram& program) {
  CamProgram back = EmptyLike(program);
  const std::string file = WriteCamFile(program);
  LineReader lines{std::string_view(file)};
  // What the reader refuses of its own writer's lines stays as far as it was read.
  static_cast<void>(ReadCamFile(back, lines));
  return back;
}

CamProgram ThroughLine(const CamProgram& program) {
  CamProgram back = EmptyLike(program);
  back.SetFunctions(FunctionsThroughLine(program));
  for (int size = 1; size <= program.NumSizes(); ++size) {
    const std::string sent = LinesOf(program, size);
    LineReader lines{std::string_view(sent)};
    SizeBlockReader(back, lines).ReadSizeBlock(size);
  }
  return back;
}

std::vector<Difference> LostInFile(const CamProgram& program) {
  return DifferencesOf(program, ThroughFile(program));
}

std::vector<Difference> LostOnLine(const CamProgram& program) {
  return DifferencesOf(program, ThroughLine(program));
}

}  // namespace nira
