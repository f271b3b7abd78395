// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

namespace nira {

/// Writes the phase ON..OFF-1 into a row as `CamProgram::SetPhase` does; degrees are 0..359. True
/// when a degree changed.
bool WritePhase(CamRow& row, int on, int off);

}  // namespace nira
