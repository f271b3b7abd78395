// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>

namespace nira {

/// The functions block: the settings that the programmer applies to all sizes. On and off flags
/// are 1 and 0. Delays and ratios exist only on a programmer of 32 cams.
struct FunctionsBlock {
  static constexpr int MaxCams = 32;

  std::uint8_t AdvanceOn = 0;
  std::uint8_t DelayOn = 0;    ///< cams 17-24 work with switching delays
  std::uint8_t Ratio25On = 0;  ///< cams 25-32 work with a division ratio
  std::uint8_t Ratio17On = 0;  ///< cams 17-24 work with a division ratio; not kept in the cam file

  std::uint8_t Delay17to20 = 0;  ///< milliseconds
  std::uint8_t Delay21to24 = 0;  ///< milliseconds
  std::uint8_t Ratio25to32 = 0;  ///< the n of 1/n
  std::uint8_t Ratio17to24 = 0;  ///< the n of 1/n; not kept in the cam file
  std::uint8_t OutputSize = 0;   ///< size that the programmer puts in use
  std::int16_t EncoderShift = 0;
  std::uint8_t RotationSense = 0;
  std::int16_t SpeedLimit = 0;

  /// Index (from 0) of the last cam that has an advance: 0 .. number of cams - 1.
  std::int16_t AdvanceLast = 0;

  /// Advance of each cam (index from 0), milliseconds.
  std::array<std::uint8_t, MaxCams> CamFunc{};

  /// Everything to 0, except `AdvanceLast`, which stays.
  void Clear();

  bool operator==(const FunctionsBlock&) const = default;
};

}  // namespace nira
