// SPDX-License-Identifier: Apache-2.0
#include "SizeSending.h"

#include "ground/Text.h"

#include <algorithm>

namespace nira {

namespace {

std::string HexPair(int value) {
  constexpr const char* digits = "0123456789ABCDEF";
  return {digits[value / 16 % 16], digits[value % 16]};
}

/// The number of entries, in hexadecimal here, and the advance of each.
std::string AdvanceRecord(const FunctionsBlock& f) {
  std::string record = HexPair(f.AdvanceLast + 1);
  for (int i = 0; i <= f.AdvanceLast; ++i) {
    record += HexPair(f.CamFunc[static_cast<std::size_t>(i)]);
  }
  return record;
}

std::string Flags(const FunctionsBlock& f) {
  std::string record;
  for (const int flag : {f.AdvanceOn, f.DelayOn, f.Ratio25On, f.Ratio17On}) {
    record += flag == 1 ? "1 " : "0 ";
  }
  return record;
}

void AddFunctions(const FunctionsBlock& f, int cams, std::vector<std::string>& records) {
  if (cams == ProgrammerState::FullCams) {
    records.push_back(Flags(f));
    if (f.AdvanceOn == 1) records.push_back(AdvanceRecord(f));
    if (f.DelayOn == 1) records.push_back(HexPair(f.Delay17to20) + HexPair(f.Delay21to24));
    if (f.Ratio25On == 1) records.push_back(std::to_string(f.Ratio25to32));
  } else {
    const bool bare = f.AdvanceLast < 1;
    records.push_back(bare ? std::to_string(f.AdvanceLast) : AdvanceRecord(f));
  }
  records.push_back(ZeroFill(f.OutputSize, 2) + ZeroFill(f.EncoderShift, 3) +
                    std::to_string(f.RotationSense) + ZeroFill(f.SpeedLimit, 4));
}

/// A cam's text goes with the first size alone.
std::string CamRecord(const ProgrammerState& state, int size, int cam) {
  std::string record = "C " + ZeroFill(cam + 1, 2);
  const std::string& text = state.CamText(cam);
  return size == 1 && !text.empty() ? record + '"' + text + '"' : record;
}

void AddSize(const ProgrammerState& state, int size, std::vector<std::string>& records) {
  records.push_back("FORMATO N. " + ZeroFill(size, 2));
  for (int cam = 0; cam < state.Cams(); ++cam) {
    const std::vector<Phase> phases = state.Phases(size, cam);
    if (phases.empty()) continue;
    records.push_back(CamRecord(state, size, cam));
    for (const Phase& phase : phases) {
      records.push_back(' ' + ZeroFill(phase.on, 3) + ' ' + ZeroFill(phase.off, 3));
    }
  }
}

}  // namespace

std::vector<std::string> SizeRecords(const ProgrammerState& state) {
  std::vector<std::string> records = {"FUNZIONI " + ZeroFill(state.Cams(), 2) + '-' +
                                      ZeroFill(state.Sizes(), 2)};
  AddFunctions(state.Functions, state.Cams(), records);
  for (int size = 1; size <= state.Sizes(); ++size) AddSize(state, size, records);
  records.emplace_back("END");
  return records;
}

}  // namespace nira
