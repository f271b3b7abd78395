// SPDX-License-Identifier: Apache-2.0
#include "model/Switching.h"

#include "model/AdvanceCalculator.h"

#include <algorithm>

namespace nira {

namespace {

int Within(int degree) {
  constexpr int cycle = CamProgram::Degrees;
  return (degree % cycle + cycle) % cycle;
}

}  // namespace

Switching Switching::Of(const CamProgram& program, int cam, int speed) {
  const FunctionsBlock& block = program.Functions();
  const EnabledFunctions enabled = EnabledIn(block, program.NumCams());
  const FunctionValue value = ShownValue(cam, enabled);
  const bool advance = value == FunctionValue::Advance;
  if (advance && (!enabled.advance || cam > program.LastAdvance())) return {};
  const int number = FieldOf(block, value, cam);
  if (IsRatio(value)) return {false, 0, number};
  const int angle = AdvanceCalculator::Degrees(AdvanceCalculator::Angle(speed, number));
  return {number > 0, advance ? angle : -angle, std::nullopt};
}

CamRow Switching::Applied(const CamRow& row) const {
  return AdvanceCalculator::Shifted(row, Within(earlier));
}

std::vector<Run> Switching::Applied(const std::vector<Run>& drawn) const {
  CamRow row{};
  for (const Run& run : drawn) {
    std::fill(row.begin() + run.on, row.begin() + run.off, std::uint8_t{1});
  }
  return PhaseList::Of(Applied(row)).runs;
}

Phase Switching::Applied(const Phase& phase) const {
  if (phase.Length() == CamProgram::Degrees) return phase;
  return {Within(phase.on - earlier), Within(phase.off - earlier)};
}

}  // namespace nira
