#include "core/workspace/Wish.h"

#include <array>
#include <fmt/format.h>

#include "core/base/Text.h"

namespace ambrel {
namespace {

enum class Argument { none, number, text };

struct Option {
  std::string_view name;
  Argument argument;
  std::string_view help;
  Wish (*make)(const std::string& argument);
};

// A number from 1 to 9 has been made sure of before this is called.
Wish copyPinned(const std::string& argument) { return wish::CopyPinned{argument.front() - '0'}; }

constexpr std::array options{
    Option{"--reveal", Argument::none, "show the bar and give it the keyboard",
           [](const std::string&) -> Wish { return wish::Reveal{}; }},
    Option{"--toggle-clipboard", Argument::none, "open or close the clipboard shelf",
           [](const std::string&) -> Wish { return wish::ToggleClipboard{}; }},
    Option{"--toggle-agents", Argument::none, "open or close the agents panel",
           [](const std::string&) -> Wish { return wish::ToggleAgents{}; }},
    Option{"--toggle-assistant", Argument::none, "open or close Ask Buddy",
           [](const std::string&) -> Wish { return wish::ToggleAssistant{}; }},
    Option{"--capture-notes", Argument::none, "capture the screen for notes",
           [](const std::string&) -> Wish { return wish::CaptureNotes{}; }},
    Option{"--copy-pinned", Argument::number, "copy the pinned clip of that number, 1 to 9", copyPinned},
    Option{"--ask", Argument::text, "ask Buddy",
           [](const std::string& argument) -> Wish { return wish::Ask{repairedUTF8(argument)}; }},
    Option{"--open-disk-doctor", Argument::none, "open Disk Doctor",
           [](const std::string&) -> Wish { return wish::OpenDiskDoctor{}; }},
    Option{"--settings", Argument::none, "open the settings",
           [](const std::string&) -> Wish { return wish::Settings{}; }},
    Option{"--customize", Argument::none, "choose the tiles of the bar",
           [](const std::string&) -> Wish { return wish::Customize{}; }},
    Option{"--quit", Argument::none, "end the running bar", [](const std::string&) -> Wish { return wish::Quit{}; }},
};

const Option* find(std::string_view name) {
  for (const Option& option : options)
    if (option.name == name) return &option;
  return nullptr;
}

std::string faultOf(const Option& option, const std::optional<std::string>& argument) {
  switch (option.argument) {
    case Argument::none:
      return argument ? fmt::format("{} takes no value", option.name) : std::string();
    case Argument::number:
      if (!argument) return fmt::format("{} needs a number from 1 to 9", option.name);
      if (argument->size() != 1 || argument->front() < '1' || argument->front() > '9')
        return fmt::format("{} needs a number from 1 to 9, not \"{}\"", option.name, repairedUTF8(*argument));
      return {};
    case Argument::text:
      return !argument || trimmed(*argument).empty() ? fmt::format("{} needs a text", option.name) : std::string();
  }
  return {};
}

CommandLine mistaken(std::string error) {
  CommandLine line;
  line.error = std::move(error);
  return line;
}

}  // namespace

CommandLine parseCommandLine(std::span<const std::string> arguments) {
  CommandLine line;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::string_view name = arguments[i];
    if (name == "--help" || name == "-h") {
      line.showsHelp = true;
      continue;
    }
    if (name == "--version") {
      line.showsVersion = true;
      continue;
    }
    if (name == "--doctor") {
      line.showsDoctor = true;
      continue;
    }
    if (name == "--json") {
      line.asJSON = true;
      continue;
    }
    std::optional<std::string> argument;
    if (const auto equals = name.find('='); name.starts_with("--") && equals != name.npos) {
      argument = std::string(name.substr(equals + 1));
      name = name.substr(0, equals);
    }
    const Option* option = find(name);
    if (!option)
      return mistaken(fmt::format("unknown {} \"{}\"; tilebay --help lists what there is",
                                  name.starts_with("-") ? "option" : "argument", repairedUTF8(name)));
    if (option->argument != Argument::none && !argument && i + 1 < arguments.size()) argument = arguments[++i];
    if (std::string fault = faultOf(*option, argument); !fault.empty()) return mistaken(std::move(fault));
    if (line.wish) return mistaken(fmt::format("{} comes second: one wish at a time", option->name));
    line.wish = option->make(argument.value_or(std::string()));
  }
  if (line.asJSON && !line.showsDoctor) return mistaken("--json needs --doctor");
  return line;
}

std::vector<CommandLineOption> commandLineOptions() {
  std::vector<CommandLineOption> all;
  for (const Option& option : options) {
    switch (option.argument) {
      case Argument::none:
        all.push_back({option.name, "", option.help});
        break;
      case Argument::number:
        all.push_back({option.name, "N", option.help});
        break;
      case Argument::text:
        all.push_back({option.name, "TEXT", option.help});
        break;
    }
  }
  all.push_back({"--doctor", "", "say what this computer has and what is missing; with --json for machines"});
  all.push_back({"--help", "", "show this text"});
  all.push_back({"--version", "", "show the version"});
  return all;
}

std::string commandLineHelp() {
  std::string help =
      "usage: tilebay [WISH]\n\n"
      "Shows a bar of live tiles at the edge of the screen. When a bar runs already, it gets the wish\n"
      "and this program ends; without a wish the running bar is shown.\n\n";
  for (const CommandLineOption& option : commandLineOptions())
    help += fmt::format("  {:<22} {}\n", fmt::format("{} {}", option.name, option.placeholder), option.help);
  return help;
}

}  // namespace ambrel
