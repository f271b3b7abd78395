// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/PhaseList.h"

#include <optional>
#include <vector>

namespace nira {

/// What the programmer makes of a cam at a speed, as its functions block says: an advance switches
/// the output earlier than programmed, a delay later, a ratio in one of n cycles only.
struct Switching {
  bool moved = false;        ///< by an advance or a delay, be it by less than a degree
  int earlier = 0;           ///< degrees within one turn, -359..359; below 0 it comes later
  std::optional<int> ratio;  ///< the n of 1/n
  bool operator==(const Switching&) const = default;

  /// Of a cam (index from 0) at `speed` (1..4000 rev/min).
  static Switching Of(const CamProgram& program, int cam, int speed);

  /// A row as the output really switches.
  CamRow Applied(const CamRow& row) const;
  /// The same of what is drawn of a row: its boxes, or one of its phases.
  std::vector<Run> Applied(const std::vector<Run>& drawn) const;
  Phase Applied(const Phase& phase) const;
};

}  // namespace nira
