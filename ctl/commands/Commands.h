#pragma once
// Every command, each in the file of its name.

#include "ctl/Command.h"

namespace ambrel {

Command agentsCommand();
Command profilesCommand();
Command widgetsCommand();

}  // namespace ambrel
