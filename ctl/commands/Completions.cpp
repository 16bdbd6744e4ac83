// What bash, zsh and fish complete, made out of the command lines themselves. The files are made when the program is
// built; `tilebayctl --json completions` prints the same words for the handbook.

#include <algorithm>
#include <fmt/format.h>
#include <set>

#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "core/workspace.h"
#include "ctl/Context.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

CommandWords wordsOfBar() {
  CommandWords words{.name = "tilebay", .summary = "A bar of live tiles", .options = {}, .commands = {}};
  for (const CommandLineOption& option : commandLineOptions())
    words.options.push_back(
        {{std::string(option.name)}, std::string(option.placeholder), std::string(option.help), {}});
  return words;
}

std::string inQuotes(std::string_view text) {
  std::string out = "'";
  for (const char each : text) {
    if (each == '\'') out += "'\\'";
    out += each;
  }
  return out + "'";
}

// One place of the tree with all that may follow there: "/agents/connect".
struct Place {
  std::string path;
  const CommandWords* command;
};
void addPlaces(const CommandWords& command, const std::string& path, std::vector<Place>& places) {
  places.push_back({path, &command});
  for (const CommandWords& each : command.commands) addPlaces(each, path + "/" + each.name, places);
}

// A word that may follow, with what it means.
using Word = std::pair<std::string, std::string>;
std::vector<Word> wordsAt(const CommandWords& command, const CommandWords& root) {
  std::vector<Word> words;
  const auto addOptions = [&](const CommandWords& from) {
    for (const CommandWords::Option& option : from.options) {
      if (option.isPositional())
        for (const std::string& choice : option.choices) words.emplace_back(choice, option.help);
      else
        words.emplace_back(option.names.back(), option.help);
    }
  };
  for (const CommandWords& each : command.commands) words.emplace_back(each.name, each.summary);
  addOptions(command);
  if (&command != &root) addOptions(root);
  std::ranges::sort(words);
  const auto repeated = std::ranges::unique(words, {}, &Word::first);
  words.erase(repeated.begin(), repeated.end());
  return words;
}

// What a shell's function has to know of a program.
struct Script {
  std::string program;
  std::vector<std::pair<std::string, std::vector<Word>>> places;
  std::string commands;  // the places themselves as alternatives of a pattern; of none, what nobody types
  std::string values;    // the same for options that take a value
};

Script scriptOf(const CommandWords& root, std::string_view between) {
  std::vector<Place> places;
  addPlaces(root, "", places);
  Script script{.program = root.name, .places = {}, .commands = {}, .values = {}};
  const auto join = [&](std::string& list, const std::string& word) {
    if (!list.empty()) list += between;
    list += word;
  };
  std::set<std::string> values;
  for (const Place& place : places) {
    script.places.emplace_back(place.path, wordsAt(*place.command, root));
    if (!place.path.empty()) join(script.commands, place.path);
    for (const CommandWords::Option& option : place.command->options)
      if (!option.value.empty()) values.insert(option.names.back());
  }
  for (const std::string& value : values) join(script.values, value);
  for (std::string* list : {&script.commands, &script.values})
    if (list->empty()) *list = "/";
  return script;
}

std::string bashScript(const CommandWords& root) {
  const Script script = scriptOf(root, "|");
  std::string text = fmt::format(R"(# bash completion for {0}
_{0}() {{
  local place= each words= i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    each=${{COMP_WORDS[i]}}
    case "$place/$each" in
      {1}) place=$place/$each ;;
    esac
  done
  COMPREPLY=()
  case "${{COMP_WORDS[COMP_CWORD - 1]}}" in
    {2}) return ;;
  esac
  case "$place" in
)",
                                 script.program, script.commands, script.values);
  for (const auto& [place, words] : script.places) {
    text += fmt::format("    {}) words='", inQuotes(place));
    for (const auto& [word, meaning] : words) text += word + " ";
    text += "' ;;\n";
  }
  return text + fmt::format(R"(  esac
  COMPREPLY=($(compgen -W "$words" -- "${{COMP_WORDS[COMP_CWORD]}}"))
}}
complete -o default -F _{0} {0}
)",
                            script.program);
}

std::string zshScript(const CommandWords& root) {
  const Script script = scriptOf(root, "|");
  std::string text = fmt::format(R"(#compdef {0}
local place= each
local -a known
for each in "${{(@)words[2,CURRENT-1]}}"; do
  case "$place/$each" in
    {1}) place=$place/$each ;;
  esac
done
case "$words[CURRENT-1]" in
  {2}) _files; return ;;
esac
case "$place" in
)",
                                 script.program, script.commands, script.values);
  for (const auto& [place, words] : script.places) {
    text += fmt::format("  {})\n    known=(\n", inQuotes(place));
    for (const auto& [word, meaning] : words) text += "      " + inQuotes(word + ":" + meaning) + "\n";
    text += "    )\n    ;;\n";
  }
  return text + fmt::format("esac\n_describe '{}' known || _files\n", script.program);
}

std::string fishScript(const CommandWords& root) {
  const Script script = scriptOf(root, " ");
  const std::set<std::string_view> values = [&] {
    const auto words = split(script.values, ' ');
    return std::set<std::string_view>(words.begin(), words.end());
  }();
  std::string text = fmt::format(R"(# fish completion for {0}
function __{0}_place
    set -l place ''
    for each in (commandline -opc)[2..]
        switch "$place/$each"
            case {1}
                set place "$place/$each"
        end
    end
    echo $place
end
)",
                                 script.program, script.commands);
  for (const auto& [place, words] : script.places) {
    for (const auto& [word, meaning] : words) {
      const bool isOption = word.starts_with("--");
      const std::string given =
          isOption ? "-l " + word.substr(2) + (values.contains(word) ? " -r" : "") : "-a " + inQuotes(word);
      text += fmt::format("complete -c {0} -n 'test (__{0}_place) = \"{1}\"' {2} -d {3}\n", script.program, place,
                          given, inQuotes(meaning));
    }
  }
  return text;
}

JSON json(const CommandWords& command) {
  JSON options = JSON::array(), commands = JSON::array();
  for (const CommandWords::Option& option : command.options)
    options.push_back(
        {{"names", option.names}, {"value", option.value}, {"help", option.help}, {"choices", option.choices}});
  for (const CommandWords& each : command.commands) commands.push_back(json(each));
  return {{"name", command.name}, {"summary", command.summary}, {"options", options}, {"commands", commands}};
}

}  // namespace

Command completionsCommand(std::function<CommandWords()> words) {
  using enum CommandOption::Kind;
  return {.name = "completions",
          .summary = "What a shell completes for one of the two programs",
          .options = {{optionalPositional, "SHELL", "", "bash, zsh or fish"},
                      {optionalPositional, "PROGRAM", "", "tilebay or tilebayctl [tilebayctl]"}},
          .commands = {},
          .run =
              [words = std::move(words)](const Arguments& arguments, Context& context) {
                if (context.json) return context.print({json(wordsOfBar()), json(words())});
                const std::string shell = arguments.value("SHELL").value_or(""),
                                  program = arguments.value("PROGRAM").value_or("tilebayctl");
                if (program != "tilebay" && program != "tilebayctl")
                  throw UsageError("'" + program + "' is neither tilebay nor tilebayctl");
                const CommandWords root = program == "tilebay" ? wordsOfBar() : words();
                if (shell == "bash")
                  context.out << bashScript(root);
                else if (shell == "zsh")
                  context.out << zshScript(root);
                else if (shell == "fish")
                  context.out << fishScript(root);
                else
                  throw UsageError("there are completions for bash, zsh and fish, not for '" + shell + "'");
              },
          .isHidden = true};
}

}  // namespace ambrel
