// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"

namespace nira {

class MessageTable;
class Prompts;
struct Comm;
enum class TransferEnd;

/// What a fault says to the operator, in the language of the table.
QString FaultText(const Fault& fault, const MessageTable& texts);

/// Shows it in a box.
void TellFault(Prompts& prompts, const MessageTable& texts, const Fault& fault);

/// The same for what stopped an exchange; returns the end that it came to.
TransferEnd TellFault(Comm& comm, const Fault& fault);

}  // namespace nira
