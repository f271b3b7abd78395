// SPDX-License-Identifier: Apache-2.0
#include "line/SizeImport.h"

#include "files/CamFile.h"
#include "files/CamWords.h"
#include "files/SizeBlockReader.h"
#include "ground/Text.h"
#include "line/WireFunctions.h"
#include "line/WorkFile.h"

#include <QDir>

#include <memory>

namespace nira {

TransferEnd SizeImport::Import() {
  LineReader lines(QDir(comm_.Folder.Path()).filePath(QString::fromLatin1(WorkFile::Sizes)));
  if (!lines.IsOpen() || lines.AtEnd()) return TransferEnd::NoFile;
  if (const TransferEnd end = CheckHeader(lines); end != TransferEnd::Done) return end;
  const auto received = std::make_unique<CamProgram>(comm_.Program);
  received->ResetProgram();
  const TransferEnd end = ReadInto(*received, lines);
  if (end != TransferEnd::Done) return end;
  received->IsSaved = false;
  comm_.Program = *received;
  return end;
}

/// The programmer's header, "FUNZIONI 32-22", names the cams before its "-".
TransferEnd SizeImport::CheckHeader(LineReader& lines) {
  const std::string header(lines.Next().value_or(std::string_view()));
  if (header.find(FunctionsWord) == std::string::npos || lines.Overlong()) return BadLine(header);
  const std::string_view before = std::string_view(header).substr(0, header.find('-'));
  const std::string_view cams =
      before.size() < header.size() ? Tail(before, 2) : std::string_view();
  if (NumericValue(cams) == comm_.Program.NumCams()) return TransferEnd::Done;
  comm_.Ask.MsgBox(QStringLiteral("WRONG DSP  C.") + FromBytes(cams), Buttons::Ok, Icon::None);
  return TransferEnd::NotIdentified;
}

TransferEnd SizeImport::ReadInto(CamProgram& program, LineReader& lines) {
  FunctionsBlock block = program.Functions();
  WireFunctions functions(lines, block, program.NumCams());
  if (!functions.Read()) return BadLine(functions.Line());
  program.SetFunctions(block);
  return ReadSizes(program, lines, functions.Line());
}

/// Reads the blocks from the size line on to the line "END"; a file without it is not whole.
TransferEnd SizeImport::ReadSizes(CamProgram& program, LineReader& lines, std::string line) {
  SizeBlockReader sizes(program, lines);
  while (line != "END") {
    const auto size = static_cast<int>(NumericValue(Tail(line, 2)));
    const bool block = sizes.ReadSizeBlock(size) == SizeBlockReader::Stop::SizeOrEnd;
    if (!block) return BadLine(sizes.Line().empty() ? line : sizes.Line());
    line = sizes.Line();
  }
  return TransferEnd::Done;
}

TransferEnd SizeImport::BadLine(std::string_view line) {
  comm_.Ask.MsgBox(ShownLine(line) + comm_.Text(TextNumber::BadFile), Buttons::Ok,
                   Icon::Exclamation);
  return TransferEnd::BadFile;
}

}  // namespace nira
