// SPDX-License-Identifier: Apache-2.0
// The work file of a received program: it is taken over whole, or nothing changes.

#include "Fuzz.h"
#include "files/CamLines.h"
#include "line/SizeImport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace nira;
  CamProgram program;
  program.SetLimits(22, 32, 255);
  program.SetPhase(3, 4, 10, 20);
  const std::string before = WriteCamFile(program);
  const Refusal refusal = SizeImport(program).Import(nira_fuzz::Bytes(data, size));
  nira_fuzz::Hold(!refusal || WriteCamFile(program) == before);
  return 0;
}
