// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

namespace nira {

const std::vector<Command>& AllCommands() {
  static const std::vector<Command> commands = {
      CheckCommand(),      //
      ListCommand(),       //
      FunctionsCommand(),  //
      RewriteCommand(),    //
      EditCommand(),       //
      PrintCommand(),      //
      MessagesCommand(),   //
      FlashCommand(),      //
      PortsCommand(),      //
      IdentifyCommand(),   //
      SendCommand(),       //
      ReceiveCommand(),    //
      SimulateCommand(),
  };
  return commands;
}

}  // namespace nira
