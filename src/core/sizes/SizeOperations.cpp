// SPDX-License-Identifier: Apache-2.0
#include "sizes/SizeOperations.h"

#include "files/CamFile.h"
#include "files/CamWords.h"
#include "files/SizeBlockReader.h"
#include "ground/Text.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace nira {

namespace {

/// Where and why the reading stopped: a medium that fails comes before what its lines look like.
ImportResult Stopped(ImportResult::Outcome outcome, const LineReader& lines,
                     std::string_view line) {
  const QString& failed = lines.Error();
  if (!failed.isEmpty()) {
    return {ImportResult::Outcome::Unreadable, lines.LineNumber(), failed, {}};
  }
  return {outcome, lines.LineNumber(), ShownLine(line), {}};
}

/// Reads on to the line that names the size; otherwise why there is none.
std::optional<ImportResult> FindSize(LineReader& lines, int number) {
  using Outcome = ImportResult::Outcome;
  const std::string header = std::string(SizeWords) + ZeroFill(number, 2);
  while (const auto line = lines.Next()) {
    if (lines.Overlong()) return Stopped(Outcome::Bad, lines, *line);
    if (line->find(header) != std::string_view::npos) return std::nullopt;
  }
  return Stopped(Outcome::NoSize, lines, {});
}

/// What was read into `block` goes over in one piece.
void TakeBlock(CamProgram& program, const CamProgram& block, int into) {
  for (int cam = 0; cam < program.NumCams(); ++cam) {
    program.SetRow(into, cam, block.CamMap(into, cam));
    program.SetCamText(cam, block.CamText(cam));
  }
}

}  // namespace

void CopySize(CamProgram& program, int from, int to) {
  for (int cam = 0; cam < program.NumCams(); ++cam) {
    program.SetRow(to, cam, CamRow(program.CamMap(from, cam)));
  }
}

void CopyCam(CamProgram& program, int size, int from, int to) {
  program.SetRow(size, to, CamRow(program.CamMap(size, from)));
}

void EraseCam(CamProgram& program, int size, int cam) {
  program.SetRow(size, cam, CamRow{});
}

void ShiftCam(CamProgram& program, int size, int cam, int degrees) {
  CamRow row = program.CamMap(size, cam);
  const auto later = (degrees % CamProgram::Degrees + CamProgram::Degrees) % CamProgram::Degrees;
  std::rotate(row.begin(), row.end() - later, row.end());
  program.SetRow(size, cam, row);
}

int ShiftOf(std::string_view text) {
  const std::string number = NumberPart(text);
  const std::size_t point = std::min(number.find('.'), number.size());
  int whole = 0;  // full turns taken off digit by digit: no number type holds them all
  for (const char c : number.substr(0, point)) {
    if (c >= '0' && c <= '9') whole = (whole * 10 + (c - '0')) % CamProgram::Degrees;
  }
  const double rest = Val(std::to_string(whole) + number.substr(point));
  const int degrees = static_cast<int>(std::nearbyint(rest)) % CamProgram::Degrees;
  return number.starts_with('-') ? -degrees : degrees;
}

ImportResult ImportSize(CamProgram& program, const QString& path, int number, int into) {
  using Outcome = ImportResult::Outcome;
  LineReader lines(path);
  if (!lines.IsOpen()) return Stopped(Outcome::Unreadable, lines, {});
  const std::string header(lines.Next().value_or(std::string_view()));
  if (header.find(FunctionsWord) == std::string::npos || lines.Overlong()) {
    return Stopped(Outcome::Bad, lines, header);
  }
  if (const auto stopped = FindSize(lines, number)) return *stopped;

  const auto block = std::make_unique<CamProgram>(program);
  block->ClearSize(into);
  SizeBlockReader reader(*block, lines);
  // A block that the file's end cuts off may be half a size.
  if (reader.ReadSizeBlock(into) != SizeBlockReader::Stop::SizeOrEnd) {
    return Stopped(Outcome::Bad, lines, reader.Line());
  }
  TakeBlock(program, *block, into);
  ImportResult result;
  if (header.size() > FunctionsWord.size())
    result.model = FromBytes(header.substr(FunctionsWord.size()));
  return result;
}

}  // namespace nira
