#pragma once
// Command line in, command and options out.

#include <optional>
#include <string>
#include <vector>

#include "core/base/Instant.h"
#include "ctl/Command.h"

namespace ambrel {

struct GlobalOptions {
  std::optional<std::string> home, data;
  std::optional<Instant> now;
  bool json = false;
};

struct ParsedCommandLine {
  GlobalOptions global;
  const Command* command = nullptr;  // one of those given, or one below it
  Arguments arguments;
  // Help or version: print this and end.
  std::optional<std::string> answer;
};

// Throws UsageError; its text ends with a hint.
ParsedCommandLine parseCommandLine(const std::vector<Command>& commands, int count, const char* const* words);

}  // namespace ambrel
