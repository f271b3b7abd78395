// SPDX-License-Identifier: Apache-2.0
#include "sizes/SizeOperations.h"

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
Fault Stopped(Fault::Kind kind, const LineReader& lines, std::string_view line) {
  if (lines.Failure()) return *lines.Failure();
  return {.What = kind, .Path = lines.Path(), .Line = lines.LineNumber(), .Text = ShownLine(line)};
}

/// Reads on to the line that names the size.
Refusal FindSize(LineReader& lines, int number) {
  const std::string header = std::string(SizeWords) + ZeroFill(number, 2);
  while (const auto line = lines.Next()) {
    if (lines.Overlong()) return Stopped(Fault::Kind::BadLine, lines, *line);
    if (line->find(header) != std::string_view::npos) return std::nullopt;
  }
  if (lines.Failure()) return lines.Failure();
  return Fault{.What = Fault::Kind::NoSize, .Path = lines.Path()};
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

Result<LoadedFile> ImportSize(CamProgram& program, const QString& path, int number, int into) {
  LineReader lines(path);
  const std::string header(lines.Next().value_or(std::string_view()));
  if (header.find(FunctionsWord) == std::string::npos || lines.Overlong()) {
    return Stopped(Fault::Kind::BadLine, lines, header);
  }
  if (const auto refusal = FindSize(lines, number)) return *refusal;

  const auto block = std::make_unique<CamProgram>(program);
  block->ClearSize(into);
  SizeBlockReader reader(*block, lines);
  const auto stop = reader.ReadSizeBlock(into);
  if (stop == SizeBlockReader::Stop::BadLine || lines.Failure()) {
    return Stopped(Fault::Kind::BadLine, lines, reader.Line());
  }
  TakeBlock(program, *block, into);
  return LoadedFile{.WithoutEnd = stop == SizeBlockReader::Stop::EndOfFile};
}

}  // namespace nira
