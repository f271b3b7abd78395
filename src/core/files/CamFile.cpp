// SPDX-License-Identifier: Apache-2.0
#include "files/CamFile.h"

#include "files/CamLines.h"
#include "files/CamWords.h"
#include "files/FunctionsReader.h"
#include "files/SizeBlockReader.h"
#include "ground/Text.h"

namespace nira {

QString ShownLine(std::string_view line) {
  constexpr std::size_t most = 200;
  QString text = FromBytes(line.substr(0, most));
  return line.size() > most ? text + QStringLiteral("...") : text;
}

CamFileCounts CountsOfHeader(std::string_view header) {
  const std::string_view rest = header.substr(std::min(FunctionsWord.size(), header.size()));
  return {NumericValue(rest.substr(0, 4)), NumericValue(Tail(rest, 3))};
}

LoadResult CamFile::LoadCamFile(const QString& path) {
  if (path.isEmpty()) return {LoadResult::Outcome::Missing, 0, {}};
  LineReader lines(path);
  if (!lines.IsOpen()) return {LoadResult::Outcome::Missing, 0, {}};
  return ReadCamFile(lines);
}

LoadResult CamFile::ReadCamFile(LineReader& lines) {
  otherSizes_ = false;
  const LoadResult result = Read(lines);
  if (result.outcome == LoadResult::Outcome::Loaded) {
    const int output = program_.Functions().OutputSize;
    program_.SelectSize(output >= 1 && output <= program_.NumSizes() ? output : 1);
  }
  return result;
}

LoadResult CamFile::Read(LineReader& lines) {
  const auto first = lines.Next();
  const std::string header(first.value_or(std::string_view()));
  if (header.find(FunctionsWord) == std::string::npos || lines.Overlong())
    return BadFile(1, header);
  if (header.size() > FunctionsWord.size()) {
    const LoadResult counts = CheckCounts(header);
    if (counts.outcome != LoadResult::Outcome::Loaded) return counts;
    program_.DimensionModel();
  }

  FunctionsBlock block = program_.Functions();
  FunctionsReader functions(lines, block, program_.NumCams());
  const bool good = functions.Read();
  program_.SetFunctions(block);
  if (!good) {
    const std::string& line =
        functions.Line().empty() && lines.LineNumber() == 1 ? header : functions.Line();
    LoadResult result = BadFile(lines.LineNumber(), line);
    result.cutOff = functions.CutOff();
    return result;
  }

  SizeBlockReader sizes(program_, lines);
  std::string line = functions.Line();
  LoadResult result;
  result.cutOff = true;  // until the last line is met
  int size = 0;          // no size line yet: a phase there belongs to no size
  while (!lines.AtEnd()) {
    if (line.find(SizeWords) != std::string::npos) {
      size = static_cast<int>(NumericValue(Tail(line, 2)));
    }
    const bool past = otherSizes_ && size > program_.NumSizes();
    const auto stop = past ? sizes.SkipSizeBlock() : sizes.ReadSizeBlock(size);
    if (stop == SizeBlockReader::Stop::BadLine) return BadFile(lines.LineNumber(), sizes.Line());
    if (stop == SizeBlockReader::Stop::EndOfFile) break;
    line = sizes.Line();
    result.cutOff = line.find("END") == std::string::npos;
    if (!result.cutOff) break;
  }
  // A medium that fails in the middle is no whole program: the last line read is the fault.
  if (!lines.Error().isEmpty()) return BadFile(lines.LineNumber(), lines.Error().toStdString());
  return result;
}

LoadResult CamFile::CheckCounts(const std::string& header) {
  const CamFileCounts counts = CountsOfHeader(header);
  if (counts.cams != program_.NumCams()) {
    prompts_.MsgBox(QString::number(counts.cams) + QStringLiteral(" WRONG NUMBER OF CAMS ") +
                        QString::number(program_.NumCams()),
                    Buttons::Ok, Icon::Critical);
    return {LoadResult::Outcome::WrongCams, 1, ShownLine(header)};
  }
  if (counts.sizes == program_.NumSizes()) return {};
  const Answer answer =
      prompts_.MsgBox(QString::number(counts.sizes) + QStringLiteral(" BAD TOTAL FORMATS ") +
                          QString::number(program_.NumSizes()),
                      Buttons::OkCancel, Icon::None);
  if (answer != Answer::Ok) return {LoadResult::Outcome::Declined, 1, ShownLine(header)};
  otherSizes_ = true;
  return {};
}

LoadResult CamFile::BadFile(int line, std::string_view text) {
  const QString shown = ShownLine(text);
  prompts_.MsgBox(shown + texts_.Text(TextNumber::BadFile), Buttons::Ok, Icon::Exclamation);
  return {LoadResult::Outcome::Bad, line, shown};
}

QString CamFile::SaveCamFile() {
  return writer_.Write(globals_.CurrentFile, WriteCamFile(program_), FileWriter::Backup::Yes);
}

}  // namespace nira
