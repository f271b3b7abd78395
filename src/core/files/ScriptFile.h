// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

namespace nira {

class MessageTable;
class WorkingFolder;

/// Fills the table from the script of this name or path. One that is gone from its path is looked
/// for by its bare name in the working folder; without any the table is as it was.
Refusal ReadScript(MessageTable& texts, const WorkingFolder& folder, const QString& script);

}  // namespace nira
