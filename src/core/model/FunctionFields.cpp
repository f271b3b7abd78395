// SPDX-License-Identifier: Apache-2.0
#include "model/FunctionFields.h"

#include "model/FunctionRules.h"

#include <QLatin1String>

namespace nira {

namespace {

template <typename... Cases>
struct Either : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Either(Cases...) -> Either<Cases...>;

}  // namespace

int FunctionField::Value(const FunctionsBlock& block, int cam) const {
  const auto index = static_cast<std::size_t>(cam);
  return std::visit(Either{[&](auto field) { return static_cast<int>(block.*field); },
                           [&](decltype(&FunctionsBlock::CamFunc) field) {
                             return static_cast<int>((block.*field).at(index));
                           }},
                    member);
}

void FunctionField::Store(FunctionsBlock& block, int value, int cam) const {
  const auto index = static_cast<std::size_t>(cam);
  std::visit(Either{[&](std::uint8_t FunctionsBlock::*field) {
                      block.*field = static_cast<std::uint8_t>(value);
                    },
                    [&](std::int16_t FunctionsBlock::*field) {
                      block.*field = static_cast<std::int16_t>(value);
                    },
                    [&](decltype(&FunctionsBlock::CamFunc) field) {
                      (block.*field).at(index) = static_cast<std::uint8_t>(value);
                    }},
             member);
}

int FunctionField::Largest(const CamProgram& program) const {
  switch (most) {
    case Most::Flag:
      return 1;
    case Most::Milliseconds:
      return HighestTime;
    case Most::Ratio:
      return HighestRatio;
    case Most::LastCam:
      return program.NumCams() - 1;
    case Most::LastSize:
      return program.NumSizes();
    case Most::Shift:
      return 999;
    case Most::Speed:
      break;
  }
  return 9999;
}

const std::vector<FunctionField>& FunctionFields() {
  using F = FunctionsBlock;
  using enum FunctionField::Most;
  static const std::vector<FunctionField> fields = {
      {"AdvanceOn", "", "1 = the advances are on", &F::AdvanceOn},
      {"AdvanceLast", "", "last cam with an advance, counted from 0", &F::AdvanceLast, LastCam},
      {"CamFunc", "ms", "advance of the cam", &F::CamFunc, Milliseconds},
      {"DelayOn", "", "1 = cams 17 to 24 have delays", &F::DelayOn, Flag, true},
      {"Delay17to20", "ms", "delay of cams 17 to 20", &F::Delay17to20, Milliseconds, true},
      {"Delay21to24", "ms", "delay of cams 21 to 24", &F::Delay21to24, Milliseconds, true},
      {"Ratio25On", "", "1 = cams 25 to 32 have a ratio", &F::Ratio25On, Flag, true},
      {"Ratio25to32", "1/n", "ratio of cams 25 to 32, its n", &F::Ratio25to32, Ratio, true},
      {"Ratio17On", "", "1 = cams 17 to 24 have a ratio; no cam file keeps it", &F::Ratio17On, Flag,
       true},
      {"Ratio17to24", "1/n", "ratio of cams 17 to 24, its n; no cam file keeps it", &F::Ratio17to24,
       Ratio, true},
      {"OutputSize", "", "size that the programmer puts in use", &F::OutputSize, LastSize},
      {"EncoderShift", "", "phase shift of the encoder", &F::EncoderShift, Shift},
      {"RotationSense", "", "direction of rotation, 0 or 1", &F::RotationSense},
      {"SpeedLimit", "", "speed limit", &F::SpeedLimit, Speed},
  };
  return fields;
}

const FunctionField* FindFunctionField(const QString& name) {
  for (const FunctionField& field : FunctionFields()) {
    if (name == QLatin1String(field.name)) return &field;
  }
  return nullptr;
}

}  // namespace nira
