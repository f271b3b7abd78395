// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FunctionsBlock.h"

#include <QString>

#include <cstdint>

namespace nira {

/// Which functions work: what the four enabling boxes say, or the flags of a block.
struct EnabledFunctions {
  bool advance = false;
  bool delay = false;    ///< cams 17-24; excludes `ratio17`
  bool ratio17 = false;  ///< cams 17-24
  bool ratio25 = false;  ///< cams 25-32
};

/// The functions that work by the flags of a block on a programmer of so many cams.
EnabledFunctions EnabledIn(const FunctionsBlock& block, int numCams);

/// The value of the functions block that concerns a cam.
enum class FunctionValue { Advance, Delay17to20, Delay21to24, Ratio17to24, Ratio25to32 };

inline constexpr int HighestTime = 210;  ///< milliseconds, advances and delays as edited
inline constexpr int HighestRatio = 9;   ///< the n of 1/n as edited

/// Delays and ratios exist only on a programmer of 32 cams.
bool HasGroups(int numCams);

/// Highest index (from 0) that the last cam with an advance may have.
std::int16_t LastAdvanceAllowed(const EnabledFunctions& functions, int numCams);

/// The value that is shown for a cam (index from 0).
FunctionValue ShownValue(int cam, const EnabledFunctions& functions);

/// The value that a change made at a cam (index from 0) goes to. It is the shown one but for cam
/// 21, whose changes go to the delay of cams 17-20: operators know it so.
FunctionValue EditedValue(int cam, const EnabledFunctions& functions);

/// The field of the block; the cam (index from 0) tells one advance from another.
std::uint8_t& FieldOf(FunctionsBlock& block, FunctionValue value, int cam);
std::uint8_t FieldOf(const FunctionsBlock& block, FunctionValue value, int cam);

bool IsRatio(FunctionValue value);

/// Height of the bar of a value, 0 to 1; more than can be edited is a full bar.
double BarFraction(FunctionValue value, int number);

/// "072" for a time, "1/4" for a ratio.
QString ValueText(FunctionValue value, int number);

/// The cams (indices from 0) that share a value: "17 - 20" and so on; one alone for an advance.
struct CamGroup {
  int first = 0;
  int last = 0;
  bool operator==(const CamGroup&) const = default;
};
CamGroup GroupOf(FunctionValue value, int cam);

}  // namespace nira
