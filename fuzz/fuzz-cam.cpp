// SPDX-License-Identifier: Apache-2.0
// A cam file, into the program of 32 cams: what was read is written, read and written again; the
// third file and all after it are the same.

#include "Fuzz.h"
#include "files/CamFile.h"
#include "files/CamLines.h"
#include "files/LineReader.h"
#include "line/Survival.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace nira;
  CamProgram program;
  program.SetLimits(22, 32, 255);
  LineReader lines(nira_fuzz::Bytes(data, size));
  static_cast<void>(ReadCamFile(program, lines, OtherSizes::Take));
  const CamProgram third = ThroughFile(ThroughFile(program));
  nira_fuzz::Hold(WriteCamFile(ThroughFile(third)) == WriteCamFile(third));
  nira_fuzz::Hold(LostInFile(third).empty());
  return 0;
}
