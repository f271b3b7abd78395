// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Console.h"

namespace nira {

/// Prints what a firmware file holds: lines, bytes, its program, the addresses that it fills with
/// the holes between them, and what it fills twice; or its first fault. False at a fault.
bool CheckFirmware(const Console& console, const QString& file);

}  // namespace nira
