#pragma once
// What a user asks of a running bar from outside: on the command line, over D-Bus, by a global key.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ambrel {

namespace wish {
struct Reveal {
  bool operator==(const Reveal&) const = default;
};
struct ToggleClipboard {
  bool operator==(const ToggleClipboard&) const = default;
};
struct ToggleAgents {
  bool operator==(const ToggleAgents&) const = default;
};
struct ToggleAssistant {
  bool operator==(const ToggleAssistant&) const = default;
};
struct CaptureNotes {
  bool operator==(const CaptureNotes&) const = default;
};
struct CopyPinned {
  int number = 1;  // 1 to 9
  bool operator==(const CopyPinned&) const = default;
};
struct Ask {
  std::string text;
  bool operator==(const Ask&) const = default;
};
struct OpenDiskDoctor {
  bool operator==(const OpenDiskDoctor&) const = default;
};
struct Settings {
  bool operator==(const Settings&) const = default;
};
struct Customize {
  bool operator==(const Customize&) const = default;
};
struct Quit {
  bool operator==(const Quit&) const = default;
};
}  // namespace wish

using Wish =
    std::variant<wish::Reveal, wish::ToggleClipboard, wish::ToggleAgents, wish::ToggleAssistant, wish::CaptureNotes,
                 wish::CopyPinned, wish::Ask, wish::OpenDiskDoctor, wish::Settings, wish::Customize, wish::Quit>;

// The program's own command line: at most one wish, or a question about the program itself.
struct CommandLine {
  std::optional<Wish> wish;
  bool showsHelp = false;
  bool showsVersion = false;
  bool showsDoctor = false;
  bool asJSON = false;  // only with showsDoctor
  std::string error;    // one line that says what is wrong; empty when all is well
  bool operator==(const CommandLine&) const = default;
};

// `arguments` without the program's name. Options that the windowing toolkit takes must have been removed.
CommandLine parseCommandLine(std::span<const std::string> arguments);

// What --help lists, in order.
struct CommandLineOption {
  std::string_view name;         // "--ask"
  std::string_view placeholder;  // of its value, "TEXT"; empty for none
  std::string_view help;
};
std::vector<CommandLineOption> commandLineOptions();

// The text for --help.
std::string commandLineHelp();

}  // namespace ambrel
