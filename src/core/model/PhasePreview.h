// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/PhaseList.h"

#include <vector>

namespace nira {

/// One thing that entering a pair does to the phases of a cam.
struct PhaseChange {
  enum class Kind {
    New,      ///< `after` stands where nothing was
    Changed,  ///< the one phase of `numbers`, `before`, becomes `after`
    Joined,   ///< the phases of `numbers` become `after`
    Deleted,  ///< the one phase of `numbers`, `before`, goes
  };

  Kind kind = Kind::New;
  std::vector<int> numbers;  ///< in the list as it is now, from 1
  Phase before;
  Phase after;
  bool operator==(const PhaseChange&) const = default;
};

/// What `CamProgram::SetPhase` would do to a row with a pair, without doing it.
struct PhasePreview {
  std::vector<PhaseChange> changes;  ///< what stands after it first, then what is deleted
  std::vector<Phase> goes;           ///< degrees that are ON now and would be OFF
  std::vector<Phase> comes;          ///< phases that would be new in the list
  bool neighbourGoes = false;        ///< a phase that the pair does not even touch is deleted
  bool keptInFile = true;            ///< a cam file keeps the row as it would be

  /// Degrees are 0..359.
  static PhasePreview Of(const CamRow& row, int on, int off);

  /// What `ReplacePhase` would do to it.
  static PhasePreview OfReplacing(const CamRow& row, const Phase& before, const Phase& after);

 private:
  static PhasePreview Of(const CamRow& row, const CamRow& next, const Phase* moved);
};

}  // namespace nira
