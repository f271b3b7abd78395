// SPDX-License-Identifier: Apache-2.0
// A firmware file: its lines, its program and the addresses that it fills.

#include "Fuzz.h"
#include "line/HexFile.h"
#include "line/HexRanges.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace nira;
  static const nira_fuzz::InputFile input("fuzz.abs");
  HexFile file(input.Put(data, size));
  HexRanges ranges;
  while (const HexLine* line = file.Next()) {
    if (line->Found != HexLine::Fault::None) continue;
    nira_fuzz::Hold(line->Checksum() == line->Text.substr(line->Text.size() - 2));
    ranges.Take(*line);
  }
  file.Program();
  nira_fuzz::Hold(ranges.Ranges().size() <= HexRanges::MostRanges);
  return 0;
}
