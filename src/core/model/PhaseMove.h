// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/PhaseList.h"

#include <optional>

namespace nira {

/// What of a phase is moved.
enum class PhasePart { On, Off, Whole };

/// A phase with its ON end, its OFF end or both moved by degrees, later in the cycle or, when
/// negative, earlier; across 359/0 as well. A degree stays ON, and two stay OFF. What is ON for
/// longer can only become shorter, where no pair of degrees says what it would be.
Phase Moved(const Phase& phase, PhasePart part, int degrees);

/// A row without the phase `before`, then with `after` written into it as `CamProgram::SetPhase`
/// does; none: the phase only goes.
CamRow Replaced(const CamRow& row, const Phase& before, const std::optional<Phase>& after);

/// The same in the current cam of the current size, as one step: the undo row is the row as it was,
/// and there is unsaved work. False, and nothing is done, when the row has no such phase or would
/// stay as it is.
bool ReplacePhase(CamProgram& program, const Phase& before, const std::optional<Phase>& after);

}  // namespace nira
