#pragma once
// Reads the process table below a /proc folder.

#include <filesystem>
#include <vector>

#include "core/workspace/Processes.h"

namespace ambrel {

// All processes; those at or below `roots`, and those of terminal multiplexers, with their arguments and windows.
// What vanishes while it is read is left out.
std::vector<ProcessRecord> readProcesses(const std::filesystem::path& proc, const std::vector<int>& roots);

}  // namespace ambrel
