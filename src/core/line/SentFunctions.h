// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FunctionsBlock.h"

#include <optional>
#include <string>
#include <vector>

namespace nira {

/// The functions that a tool sent to a programmer of so many cams, from the records that arrived.
/// A record may have arrived again, when the answer to it was lost. None when the records are not
/// what they have to be.
std::optional<FunctionsBlock> FunctionsOf(const std::vector<std::string>& records, int cams);

}  // namespace nira
