// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace nira {

/// The English script as it came with the program: built in, for what another script lacks.
std::string_view DefaultScript();

}  // namespace nira
