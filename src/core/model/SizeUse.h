// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

namespace nira {

/// How much of each size is in use. Only the sizes that changed since the last time are counted.
class SizeUse {
 public:
  struct Count {
    int cams = 0;    ///< with a phase
    int phases = 0;  ///< of all of them
  };

  void Follow(const CamProgram& program);

  /// Of a size, from 1.
  const Count& Of(int size) const { return counts_.at(static_cast<std::size_t>(size - 1)).count; }
  /// Sizes with a phase.
  int Used() const;

 private:
  struct Counted {
    std::uint64_t revision = 0;
    Count count;
  };

  std::vector<Counted> counts_;
  int numCams_ = 0;
};

}  // namespace nira
