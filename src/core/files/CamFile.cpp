// SPDX-License-Identifier: Apache-2.0
#include "files/CamFile.h"

#include "files/CamLines.h"
#include "files/CamWords.h"
#include "files/FileWriter.h"
#include "files/FunctionsReader.h"
#include "files/SizeBlockReader.h"
#include "ground/Text.h"

#include <QFileInfo>

namespace nira {

namespace {

/// Reads one cam file into a program.
class CamFileReader {
 public:
  CamFileReader(CamProgram& program, LineReader& lines, OtherSizes other)
      : program_(program), lines_(lines), takes_(other == OtherSizes::Take) {}

  /// Why the reading ended early; none when it did not.
  Refusal Read();

  LoadedFile Loaded;

 private:
  Refusal ReadHeader();
  Refusal CheckCounts();
  Refusal ReadFunctions();
  Refusal ReadSizes();
  SizeBlockReader::Stop ReadBlock(SizeBlockReader& sizes, int size);
  Fault At(Fault::Kind kind, std::string_view line) const;

  CamProgram& program_;
  LineReader& lines_;
  bool takes_;
  std::string header_;
  std::string line_;  // behind the functions, and then behind each block
};

Fault CamFileReader::At(Fault::Kind kind, std::string_view line) const {
  return {.What = kind, .Line = lines_.LineNumber(), .Text = ShownLine(line)};
}

Refusal CamFileReader::Read() {
  Refusal refusal = ReadHeader();
  if (!refusal) refusal = ReadFunctions();
  if (!refusal) refusal = ReadSizes();
  // A medium that fails in the middle is no whole program, whatever its lines look like.
  return lines_.Failure() ? lines_.Failure() : refusal;
}

Refusal CamFileReader::ReadHeader() {
  header_ = lines_.Next().value_or(std::string_view());
  if (header_.find(FunctionsWord) == std::string::npos || lines_.Overlong()) {
    return Fault{.What = Fault::Kind::BadLine, .Line = 1, .Text = ShownLine(header_)};
  }
  if (header_.size() <= FunctionsWord.size()) return std::nullopt;
  if (auto refusal = CheckCounts()) return refusal;
  program_.DimensionModel();
  return std::nullopt;
}

Refusal CamFileReader::CheckCounts() {
  const CamFileCounts counts = CountsOfHeader(header_);
  Fault fault = At(Fault::Kind::WrongCams, header_);
  fault.Found = static_cast<int>(counts.cams);
  fault.Expected = program_.NumCams();
  if (counts.cams != program_.NumCams()) return fault;
  fault.What = Fault::Kind::OtherSizes;
  fault.Found = static_cast<int>(counts.sizes);
  fault.Expected = program_.NumSizes();
  if (counts.sizes != program_.NumSizes() && !takes_) return fault;
  return std::nullopt;
}

Refusal CamFileReader::ReadFunctions() {
  FunctionsBlock block = program_.Functions();
  FunctionsReader functions(lines_, block, program_.NumCams());
  const bool good = functions.Read();
  program_.SetFunctions(block);
  line_ = functions.Line();
  if (good) return std::nullopt;
  const bool none = line_.empty() && lines_.LineNumber() == 1;
  return At(functions.CutOff() ? Fault::Kind::CutOff : Fault::Kind::BadLine,
            none ? header_ : line_);
}

/// Size blocks in any order, each for the size that its size line names, up to the line "END".
Refusal CamFileReader::ReadSizes() {
  SizeBlockReader sizes(program_, lines_);
  Loaded.WithoutEnd = true;  // until the last line is met
  int size = 0;              // no size line yet: a phase there belongs to no size
  while (Loaded.WithoutEnd && !lines_.AtEnd()) {
    if (line_.find(SizeWords) != std::string::npos) {
      size = static_cast<int>(NumericValue(Tail(line_, 2)));
    }
    const auto stop = ReadBlock(sizes, size);
    if (stop == SizeBlockReader::Stop::BadLine) return At(Fault::Kind::BadLine, sizes.Line());
    if (stop == SizeBlockReader::Stop::EndOfFile) break;
    line_ = sizes.Line();
    Loaded.WithoutEnd = line_.find(EndWord) == std::string::npos;
  }
  return std::nullopt;
}

SizeBlockReader::Stop CamFileReader::ReadBlock(SizeBlockReader& sizes, int size) {
  if (!takes_ || size <= program_.NumSizes()) return sizes.ReadSizeBlock(size);
  ++Loaded.LeftOut;
  return sizes.SkipSizeBlock();
}

}  // namespace

QString ShownLine(std::string_view line) {
  constexpr std::size_t most = 200;
  QString text = FromBytes(line.substr(0, most));
  return line.size() > most ? text + QStringLiteral("...") : text;
}

CamFileCounts CountsOfHeader(std::string_view header) {
  const std::string_view rest = header.substr(std::min(FunctionsWord.size(), header.size()));
  return {NumericValue(rest.substr(0, 4)), NumericValue(Tail(rest, 3))};
}

Result<LoadedFile> LoadCamFile(CamProgram& program, const QString& path, OtherSizes other) {
  if (!QFileInfo::exists(path)) return Fault{.What = Fault::Kind::Missing, .Path = path};
  LineReader lines(path);
  if (lines.Failure()) return *lines.Failure();
  return ReadCamFile(program, lines, other);
}

Result<LoadedFile> ReadCamFile(CamProgram& program, LineReader& lines, OtherSizes other) {
  CamFileReader reader(program, lines, other);
  if (auto refusal = reader.Read()) {
    refusal->Path = lines.Path();
    return *refusal;
  }
  const int output = program.Functions().OutputSize;
  program.SelectSize(output >= 1 && output <= program.NumSizes() ? output : 1);
  return reader.Loaded;
}

Refusal SaveCamFile(const CamProgram& program, const QString& path, FileWriter& writer) {
  return writer.Write(path, WriteCamFile(program), FileWriter::Backup::Yes);
}

}  // namespace nira
