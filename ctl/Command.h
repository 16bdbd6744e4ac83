#pragma once
// What a command of tilebayctl is: its words, its options, and the function that carries it out.
// A new one is a file in ctl/commands with one function that returns its Command, listed in main.cpp.

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

class Context;

// It could not be done: one line on standard error, exit status 1.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Wrong usage: one line on standard error with a hint, exit status 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// For the end of a UsageError about a word that is not among `known`: "; did you mean 'agents'?", else where the list
// of them is.
std::string hint(std::string_view word, const std::vector<std::string>& known, const std::string& list);

struct CommandOption {
  enum class Kind { flag, value, values, positional, optionalPositional };
  Kind kind = Kind::flag;
  std::string name;         // "--every"; without dashes for a positional: "FILE"
  std::string placeholder;  // "SECONDS"
  std::string help;
  std::vector<std::string> choices = {};  // the words that shells offer; empty for a text of any kind
};

// What was given on the command line, by the names of the options.
class Arguments {
 public:
  bool has(const std::string& name) const { return given_.count(name) != 0; }
  std::optional<std::string> value(const std::string& name) const;
  std::vector<std::string> values(const std::string& name) const;
  // A number above zero; throws UsageError for anything else.
  std::optional<double> positiveNumber(const std::string& name) const;

  void add(const std::string& name, std::vector<std::string> values) { given_[name] = std::move(values); }

 private:
  std::map<std::string, std::vector<std::string>> given_;
};

struct Command {
  std::string name;
  std::string summary;
  std::vector<CommandOption> options;
  // Commands of its own ("statusline install"), what carries it out without one of them, or both.
  std::vector<Command> commands;
  std::function<void(const Arguments&, Context&)> run;
  std::string details = {};  // printed below the options by --help
  bool isHidden = false;     // --help leaves it out
};

}  // namespace ambrel
