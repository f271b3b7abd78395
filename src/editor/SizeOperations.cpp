#include "editor/SizeOperations.h"

#include "files/CamFile.h"
#include "files/CamWords.h"
#include "files/SizeBlockReader.h"
#include "model/Text.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace nira {

namespace {

ImportResult Stopped(ImportResult::Outcome outcome, const LineReader& lines, const QString& text) {
  return {outcome, lines.LineNumber(), text, {}};
}

/// Reads on to the line that names the size; false at the end of the file.
bool FindSize(LineReader& lines, int number) {
  const std::string header = std::string(SizeWords) + ZeroFill(number, 2);
  while (const auto line = lines.Next()) {
    if (line->find(header) != std::string_view::npos) return true;
  }
  return false;
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
  return static_cast<int>(std::fmod(std::nearbyint(Val(text)), CamProgram::Degrees));
}

ImportResult ImportSize(CamProgram& program, const QString& path, int number, int into) {
  using Outcome = ImportResult::Outcome;
  LineReader lines(path);
  if (!lines.IsOpen()) return Stopped(Outcome::Unreadable, lines, lines.Error());
  const std::string header(lines.Next().value_or(std::string_view()));
  if (header.find(FunctionsWord) == std::string::npos || lines.Overlong()) {
    return Stopped(Outcome::Bad, lines, ShownLine(header));
  }
  if (!FindSize(lines, number)) return Stopped(Outcome::NoSize, lines, {});

  const auto block = std::make_unique<CamProgram>(program);
  block->ClearSize(into);
  SizeBlockReader reader(*block, lines);
  if (reader.ReadSizeBlock(into) == SizeBlockReader::Stop::BadLine) {
    return Stopped(Outcome::Bad, lines, ShownLine(reader.Line()));
  }
  if (!lines.Error().isEmpty()) return Stopped(Outcome::Unreadable, lines, lines.Error());
  TakeBlock(program, *block, into);
  ImportResult result;
  if (header.size() > FunctionsWord.size())
    result.model = FromBytes(header.substr(FunctionsWord.size()));
  return result;
}

}  // namespace nira
