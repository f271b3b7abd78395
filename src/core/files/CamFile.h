// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/FileWriter.h"
#include "files/LineReader.h"
#include "files/MessageTable.h"
#include "ground/Prompts.h"
#include "model/CamProgram.h"
#include "model/Globals.h"

#include <string>

namespace nira {

/// How the reading of a cam file ended.
struct LoadResult {
  enum class Outcome {
    Loaded,
    Missing,    ///< no such file, or it cannot be opened: nothing changed, nothing was shown
    WrongCams,  ///< of another number of cams: told, program as before
    Declined,   ///< of another number of sizes, and the operator did not want it
    Bad,        ///< a bad line: told, what was read so far stays
  };
  Outcome outcome = Outcome::Loaded;
  int line = 0;  ///< number of the offending line, from 1; 0 when there is none
  QString text;  ///< the offending line
  /// The file ends too early: after that line, or, when it was loaded, without its line "END".
  bool cutOff = false;
  bool Refused() const { return outcome != Outcome::Loaded && outcome != Outcome::Missing; }
};

/// Reads and writes the cam file: the functions block and every size of the program as text lines
/// of Windows-1252 characters.
class CamFile {
 public:
  CamFile(CamProgram& program, Globals& globals, Prompts& prompts, const MessageTable& texts,
          FileWriter& writer)
      : program_(program), globals_(globals), prompts_(prompts), texts_(texts), writer_(writer) {}

  /// Reads a file into the program's own dimensions; a file of other dimensions is told or asked
  /// about. Selects the output size when it exists, otherwise size 1.
  LoadResult LoadCamFile(const QString& path);
  /// The same from lines that stand ready.
  LoadResult ReadCamFile(LineReader& lines);

  /// Writes the program to `CurrentFile`; returns the system's reason when that failed.
  QString SaveCamFile();

 private:
  LoadResult Read(LineReader& lines);
  LoadResult CheckCounts(const std::string& header);
  LoadResult BadFile(int line, std::string_view text);

  CamProgram& program_;
  Globals& globals_;
  Prompts& prompts_;
  const MessageTable& texts_;
  FileWriter& writer_;
  bool otherSizes_ = false;  // the operator took a file of another number of sizes
};

/// A line of a file as messages show it, cut where a box would no longer be readable.
QString ShownLine(std::string_view line);

/// Numbers of cams and sizes that the first line of a cam file names.
struct CamFileCounts {
  std::int64_t cams = 0;
  std::int64_t sizes = 0;
};
CamFileCounts CountsOfHeader(std::string_view header);

}  // namespace nira
