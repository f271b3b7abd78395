// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

#include <cstdint>
#include <string_view>

namespace nira {

class CamProgram;
class FileWriter;
class LineReader;

// The cam file: the functions block and every size of a program as text lines of Windows-1252
// characters.

/// What is to be known of a cam file that was read.
struct LoadedFile {
  bool WithoutEnd = false;  ///< its line "END" is missing, and what stood before it may be
  int LeftOut = 0;          ///< sizes of the file that the program has no room for
};

/// What is done with a file of another number of sizes than the program's.
enum class OtherSizes {
  Refuse,  ///< it ends as `OtherSizes`, nothing changed: the caller may ask, and take it
  Take,    ///< sizes beyond the program's are left out, sizes that the file lacks stay empty
};

/// Reads a file into the program's own dimensions and selects the output size when it exists,
/// otherwise size 1. A file that is missing, cannot be opened or is of other dimensions changes
/// nothing; of one with a bad line, or that ends too early, what was read before it stays.
Result<LoadedFile> LoadCamFile(CamProgram& program, const QString& path,
                               OtherSizes other = OtherSizes::Refuse);

/// The same from lines that stand ready.
Result<LoadedFile> ReadCamFile(CamProgram& program, LineReader& lines,
                               OtherSizes other = OtherSizes::Refuse);

/// Writes the whole program, keeping the file that it replaces.
Refusal SaveCamFile(const CamProgram& program, const QString& path, FileWriter& writer);

/// A line of a file as messages show it, cut where a box would no longer be readable.
QString ShownLine(std::string_view line);

/// Numbers of cams and sizes that the first line of a cam file names.
struct CamFileCounts {
  std::int64_t cams = 0;
  std::int64_t sizes = 0;
};
CamFileCounts CountsOfHeader(std::string_view header);

}  // namespace nira
