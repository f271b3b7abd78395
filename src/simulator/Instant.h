// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

namespace nira {

/// A time on the simulated line, counted from any zero that its clock has.
using Instant = std::chrono::nanoseconds;

}  // namespace nira
