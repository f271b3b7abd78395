// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/LineReader.h"
#include "line/Comm.h"

#include <string_view>

namespace nira {

/// Takes a received program from the work file over into the cam program: functions, descriptions
/// and sizes, all of it or nothing.
class SizeImport {
 public:
  explicit SizeImport(Comm& comm) : comm_(comm) {}

  /// `Done`: the program is the received one, size 1 and cam 1 selected, unsaved. Otherwise it is
  /// as it was, after a message; a missing or empty file alone is passed over without one.
  TransferEnd Import();

 private:
  TransferEnd CheckHeader(LineReader& lines);
  TransferEnd ReadInto(CamProgram& program, LineReader& lines);
  TransferEnd ReadSizes(CamProgram& program, LineReader& lines, std::string line);
  TransferEnd BadLine(std::string_view line);

  Comm& comm_;
};

}  // namespace nira
