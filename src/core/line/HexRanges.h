// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/HexFile.h"

#include <map>
#include <vector>

namespace nira {

/// The addresses that the data records of a firmware file fill, by its segment and linear base
/// records. Bounded however the file scatters its bytes.
class HexRanges {
 public:
  static constexpr std::size_t MostRanges = 4096;
  static constexpr std::size_t MostOverlaps = 16;  ///< that are kept

  struct Range {
    std::uint64_t First;
    std::uint64_t Last;
    std::uint64_t Bytes() const { return Last - First + 1; }
  };
  struct Overlap {
    int Line;  ///< that filled the range once more, from 1
    Range Filled;
  };

  /// Takes a line without fault. False when it is a base record that has not two bytes.
  bool Take(const HexLine& line);

  /// In the order of their addresses, none touching the next.
  std::vector<Range> Ranges() const;
  const std::vector<Overlap>& Overlaps() const { return overlaps_; }
  std::int64_t OverlapCount() const { return overlapCount_; }

  /// False when the bytes lie so scattered that not all of them were taken.
  bool Complete() const { return complete_; }

 private:
  void Fill(int line, Range range);
  void Join(Range range);

  std::uint64_t base_ = 0;
  bool segment_ = true;  // an offset that runs over goes on at the start of its segment
  std::map<std::uint64_t, std::uint64_t> ranges_;  // last address by first
  std::vector<Overlap> overlaps_;
  std::int64_t overlapCount_ = 0;
  bool complete_ = true;
};

}  // namespace nira
