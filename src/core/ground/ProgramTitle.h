// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace nira {

/// The program's name as titles show it.
inline constexpr const char* ProgramTitle = "NIRA-KPL";

}  // namespace nira
