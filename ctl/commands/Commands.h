#pragma once
// Every command, each in the file of its name.

#include "core/agents/connect/HookConnection.h"
#include "ctl/Command.h"
#include "ctl/CommandLine.h"

namespace ambrel {

Command agentsCommand();
Command askCommand();
Command clipsCommand();
// Hidden: what shells complete. words: of tilebayctl itself.
Command completionsCommand(std::function<CommandWords()> words);
Command diskCommand();
Command doctorCommand();
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
HookConnection::Places hookPlaces(const Context& context);

}  // namespace ambrel
