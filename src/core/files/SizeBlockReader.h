// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/LineReader.h"
#include "model/CamProgram.h"

#include <string>

namespace nira {

/// Reads the cam and phase lines of size blocks into the program. The cam that phase lines belong
/// to is that of the last cam line, whichever block it stood in.
class SizeBlockReader {
 public:
  enum class Stop {
    SizeOrEnd,  ///< at a size line or "END", which is `Line` then
    EndOfFile,
    BadLine,  ///< at a line that the program cannot hold, which is `Line` then
  };

  SizeBlockReader(CamProgram& program, LineReader& lines) : program_(program), lines_(lines) {}

  /// Reads up to a size line, "END" or the end of the file into the size (from 1).
  Stop ReadSizeBlock(int size);

  /// Reads past a block: its descriptions and cams count for nothing.
  Stop SkipSizeBlock();

  /// The line at which the reading stopped; at the end of the file the last one before it.
  const std::string& Line() const { return line_; }

 private:
  Stop Read(int size, bool skip);
  void TakeCamLine(std::string_view line);
  void TakePhaseLine(std::string_view line, int size);

  CamProgram& program_;
  LineReader& lines_;
  std::string line_;
  int cam_ = -1;  // no cam line yet
};

}  // namespace nira
