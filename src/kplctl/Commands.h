// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Command.h"

namespace nira {

// Each stands in the file of its name.
Command CheckCommand();
Command ListCommand();
Command FunctionsCommand();
Command RewriteCommand();
Command EditCommand();
Command PrintCommand();
Command MessagesCommand();
Command FlashCommand();
Command PortsCommand();
Command IdentifyCommand();
Command SendCommand();
Command ReceiveCommand();
Command SimulateCommand();

/// All commands, in the order in which the usage shows them.
const std::vector<Command>& AllCommands();

}  // namespace nira
