// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

namespace nira {

class MessageTable;
class Prompts;

/// What a fault says to the operator, in the language of the table.
QString FaultText(const Fault& fault, const MessageTable& texts);

/// Shows it in a box.
void TellFault(Prompts& prompts, const MessageTable& texts, const Fault& fault);

}  // namespace nira
