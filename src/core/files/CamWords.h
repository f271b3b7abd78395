// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace nira {

/// What the first line of a cam file begins with.
inline constexpr std::string_view FunctionsWord = "FUNZIONI";

/// What a size line holds before the two digits of its size.
inline constexpr std::string_view SizeWords = "FORMATO N. ";

/// The line, and the record, after the last size or message.
inline constexpr std::string_view EndWord = "END";

}  // namespace nira
