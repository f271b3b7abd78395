// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

#include <QString>

#include <string_view>

namespace nira {

/// What a language script holds, as far as it was read.
struct ScriptReport {
  int lines = 0;
  int texts = 0;    ///< lines that are not empty
  int missing = 0;  ///< texts of the windows that it does not have
  Refusal fault;
};

/// Looks for what would make a script lose characters or texts when it is read: line ends other
/// than CR LF, missing quotes, texts beyond the table's bounds.
ScriptReport CheckScript(std::string_view bytes);

/// The same for a file; at most the bytes that a whole script can have are read.
ScriptReport CheckScriptFile(const QString& path);

}  // namespace nira
