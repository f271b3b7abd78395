// SPDX-License-Identifier: Apache-2.0
#include "line/SizeImport.h"

#include "files/CamFile.h"
#include "files/CamWords.h"
#include "files/SizeBlockReader.h"
#include "ground/Text.h"
#include "line/WireFunctions.h"

#include <memory>

namespace nira {

namespace {

Fault BadLine(std::string_view line) {
  return {.What = Fault::Kind::BadLine, .Text = ShownLine(line)};
}

/// Reads the blocks from the size line on to the line "END"; what lacks that is not whole.
Refusal ReadSizes(CamProgram& program, LineReader& lines, std::string line) {
  SizeBlockReader sizes(program, lines);
  while (line != EndWord) {
    const auto size = static_cast<int>(NumericValue(Tail(line, 2)));
    const bool block = sizes.ReadSizeBlock(size) == SizeBlockReader::Stop::SizeOrEnd;
    if (!block) return BadLine(sizes.Line().empty() ? line : sizes.Line());
    line = sizes.Line();
  }
  return std::nullopt;
}

}  // namespace

Refusal SizeImport::Import(std::string_view received) {
  LineReader lines(received);
  if (Refusal refusal = CheckHeader(lines)) return refusal;
  const auto program = std::make_unique<CamProgram>(program_);
  program->ResetProgram();
  if (Refusal refusal = ReadInto(*program, lines)) return refusal;
  program->IsSaved = false;
  program_ = *program;
  return std::nullopt;
}

Refusal SizeImport::ReadInto(CamProgram& program, LineReader& lines) {
  FunctionsBlock block = program.Functions();
  WireFunctions functions(lines, block, program.NumCams());
  if (Refusal refusal = functions.Read()) return refusal;
  program.SetFunctions(block);
  remarks_ = OutOfRange(program);
  if (!functions.Doubtful().empty()) remarks_.append(ShownLine(functions.Doubtful()));
  return ReadSizes(program, lines, functions.Line());
}

/// The programmer's header, "FUNZIONI 32-22", names the cams before its "-".
Refusal SizeImport::CheckHeader(LineReader& lines) const {
  const std::string header(lines.Next().value_or(std::string_view()));
  if (header.find(FunctionsWord) == std::string::npos || lines.Overlong()) return BadLine(header);
  const std::string_view before = std::string_view(header).substr(0, header.find('-'));
  const std::string_view cams =
      before.size() < header.size() ? Tail(before, 2) : std::string_view();
  if (NumericValue(cams) == program_.NumCams()) return std::nullopt;
  return Fault{.What = Fault::Kind::WrongDevice, .Text = FromBytes(cams)};
}

}  // namespace nira
