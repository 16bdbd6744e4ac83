#pragma once
// Every command, each in the file of its name.

#include "ctl/Command.h"

namespace ambrel {

Command agentsCommand();
Command askCommand();
Command clipsCommand();
Command diskCommand();
Command licenceCommand();
Command noticesCommand();
Command profilesCommand();
Command reviewCommand();
Command settingsCommand();
Command statusLineCommand();
Command toolCommand();
Command usageCommand();
Command weatherCommand();
Command widgetsCommand();

// Below "agents".
std::vector<Command> agentHookCommands();

}  // namespace ambrel
