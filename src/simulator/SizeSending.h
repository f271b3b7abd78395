// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ProgrammerState.h"

#include <string>
#include <vector>

namespace nira {

/// The records by which a programmer hands its functions and all of its sizes out.
std::vector<std::string> SizeRecords(const ProgrammerState& state);

}  // namespace nira
