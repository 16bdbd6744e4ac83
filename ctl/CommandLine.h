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

// The words of the command line as a tree, for shells and for the handbook. Hidden commands are not in it.
struct CommandWords {
  struct Option {
    std::vector<std::string> names;  // "-h", "--help"; of a positional its one name without dashes
    std::string value;               // its placeholder, empty for a flag
    std::string help;
    std::vector<std::string> choices;  // of the value; empty for any text
    bool isPositional() const { return !names.front().starts_with('-'); }
  };
  std::string name, summary;
  std::vector<Option> options;
  std::vector<CommandWords> commands;
};
CommandWords commandWords(const std::vector<Command>& commands);

}  // namespace ambrel
