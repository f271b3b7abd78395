// SPDX-License-Identifier: Apache-2.0
#include "model/FunctionRules.h"

#include "ground/Text.h"

#include <algorithm>
#include <utility>

namespace nira {

namespace {

constexpr int firstGrouped = 16;  // index of cam 17
constexpr int secondDelay = 20;   // index of cam 21
constexpr int secondRatios = 24;  // index of cam 25
constexpr int groupedModel = 32;  // cams of the model that has delays and ratios

FunctionValue ValueOfCam(int cam, const EnabledFunctions& functions, int delaySplit) {
  if (cam >= secondRatios) {
    return functions.ratio25 ? FunctionValue::Ratio25to32 : FunctionValue::Advance;
  }
  if (cam < firstGrouped) return FunctionValue::Advance;
  if (functions.delay) {
    return cam >= delaySplit ? FunctionValue::Delay21to24 : FunctionValue::Delay17to20;
  }
  return functions.ratio17 ? FunctionValue::Ratio17to24 : FunctionValue::Advance;
}

}  // namespace

EnabledFunctions EnabledIn(const FunctionsBlock& block, int numCams) {
  const bool groups = HasGroups(numCams);
  const bool delay = groups && block.DelayOn == 1;
  return {block.AdvanceOn == 1, delay, groups && block.Ratio17On == 1 && !delay,
          groups && block.Ratio25On == 1};
}

bool HasGroups(int numCams) {
  return numCams == groupedModel;
}

std::int16_t LastAdvanceAllowed(const EnabledFunctions& functions, int numCams) {
  if (!functions.advance) return 0;
  if (functions.delay || functions.ratio17) return firstGrouped - 1;
  if (functions.ratio25) return secondRatios - 1;
  return static_cast<std::int16_t>(numCams - 1);
}

FunctionValue ShownValue(int cam, const EnabledFunctions& functions) {
  return ValueOfCam(cam, functions, secondDelay);
}

FunctionValue EditedValue(int cam, const EnabledFunctions& functions) {
  return ValueOfCam(cam, functions, secondDelay + 1);
}

std::uint8_t& FieldOf(FunctionsBlock& block, FunctionValue value, int cam) {
  switch (value) {
    case FunctionValue::Delay17to20:
      return block.Delay17to20;
    case FunctionValue::Delay21to24:
      return block.Delay21to24;
    case FunctionValue::Ratio17to24:
      return block.Ratio17to24;
    case FunctionValue::Ratio25to32:
      return block.Ratio25to32;
    case FunctionValue::Advance:
      break;
  }
  return block.CamFunc.at(static_cast<std::size_t>(cam));
}

std::uint8_t FieldOf(const FunctionsBlock& block, FunctionValue value, int cam) {
  return FieldOf(const_cast<FunctionsBlock&>(block), value, cam);
}

bool IsRatio(FunctionValue value) {
  return value == FunctionValue::Ratio17to24 || value == FunctionValue::Ratio25to32;
}

double BarFraction(FunctionValue value, int number) {
  const double full = IsRatio(value) ? HighestRatio : HighestTime;
  return std::clamp(number / full, 0.0, 1.0);
}

QString ValueText(FunctionValue value, int number) {
  if (IsRatio(value)) return QStringLiteral("1/") + QString::number(number);
  return ZeroFilled(number, 3);
}

CamGroup GroupOf(FunctionValue value, int cam) {
  switch (value) {
    case FunctionValue::Delay17to20:
      return {firstGrouped, secondDelay - 1};
    case FunctionValue::Delay21to24:
      return {secondDelay, secondRatios - 1};
    case FunctionValue::Ratio17to24:
      return {firstGrouped, secondRatios - 1};
    case FunctionValue::Ratio25to32:
      return {secondRatios, groupedModel - 1};
    case FunctionValue::Advance:
      break;
  }
  return {cam, cam};
}

}  // namespace nira
