// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/PhaseList.h"

#include <QString>

#include <vector>

namespace nira {

struct FunctionField;

/// One thing in which two programs, the one here and the one there, are not the same.
struct Difference {
  enum class Kind {
    Model,        ///< the limits; sizes and cams that one of them has not count as empty
    Function,     ///< a field of the functions block
    Description,  ///< of a cam
    Phases,       ///< of a cam in a size: those that meet each other and are not on both sides
  };

  Kind kind = Kind::Phases;
  int size = 0;                          ///< from 1; 0 where it is of no size
  int cam = -1;                          ///< from 0; -1 where it is of no cam
  const FunctionField* field = nullptr;  ///< of a function
  QString here = {};                     ///< value or description, empty when there is none
  QString there = {};
  std::vector<Phase> phasesHere = {};  ///< empty when there is none
  std::vector<Phase> phasesThere = {};
};

/// What differs, in the operator's order: model, functions, descriptions, then size by size the
/// cams. A function that works in neither program does not count, nor does a description of blanks
/// alone.
std::vector<Difference> DifferencesOf(const CamProgram& here, const CamProgram& there);

}  // namespace nira
