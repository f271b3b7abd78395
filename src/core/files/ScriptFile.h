// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"
#include "files/WorkingFolder.h"
#include "ground/Prompts.h"
#include "model/Globals.h"

namespace nira {

/// Fills the table from `ScriptFile`. False, after a message, when there is no such file: the
/// program cannot go on without its texts.
bool ReadScript(MessageTable& texts, const WorkingFolder& folder, const Globals& globals,
                Prompts& prompts);

}  // namespace nira
