// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"
#include "model/Differences.h"

#include <vector>

namespace nira {

// What of a program its cam file and the line cannot carry. Both answers come from writing the
// program and reading that back in memory, with what writes and reads the real ones, so that they
// never disagree with the formats.

/// The program as its cam file gives it back.
CamProgram ThroughFile(const CamProgram& program);

/// The program as a programmer of its limits gives it back after it was sent there.
CamProgram ThroughLine(const CamProgram& program);

/// What a saved file would not hold.
std::vector<Difference> LostInFile(const CamProgram& program);

/// What a programmer would not hold after a transmission.
std::vector<Difference> LostOnLine(const CamProgram& program);

}  // namespace nira
