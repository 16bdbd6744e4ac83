#pragma once
// Asking a program for a text, without a shell and without an input.

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ambrel {

struct ToolRun {
  std::string program;  // its path
  std::vector<std::string> arguments = {};
  std::chrono::milliseconds limit{15'000};
  std::map<std::string, std::string> environment = {};  // in addition to ours
};

// Waits until the program ends. Absent if it cannot be started, fails or takes too long, in which case it is ended.
std::optional<std::string> outputOf(const ToolRun& run);

}  // namespace ambrel
