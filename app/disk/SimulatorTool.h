#pragma once
// The developer tool that lists the installed simulator runtimes.

#include <chrono>
#include <string>
#include <vector>

#include "core/disk/Findings.h"

namespace ambrel {

struct SimulatorTool {
  std::string program = "/usr/bin/xcrun";
  // The tool is run only if one of these exists.
  std::vector<std::string> signs = {"/Library/Developer/CoreSimulator", "/Applications/Xcode.app"};
  std::chrono::milliseconds timeout{15'000};
};

// Blocks until the tool ends. Empty if there is none, if it fails or if it takes too long.
std::vector<SimulatorRuntime> readRuntimes(const SimulatorTool& tool);

}  // namespace ambrel
