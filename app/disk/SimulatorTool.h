#pragma once
// The developer tool that knows which simulator runtimes are installed, where there is one.

#include <chrono>
#include <string>
#include <vector>

#include "core/disk/Findings.h"

namespace ambrel {

struct SimulatorTool {
  std::string program = "/usr/bin/xcrun";
  // One of these proves that the tool has something to tell.
  std::vector<std::string> signs = {"/Library/Developer/CoreSimulator", "/Applications/Xcode.app"};
  std::chrono::milliseconds timeout{15'000};
};

// Waits for the tool, so not for the main thread. Empty when there is none, when it fails or takes too long.
std::vector<SimulatorRuntime> readRuntimes(const SimulatorTool& tool);

}  // namespace ambrel
